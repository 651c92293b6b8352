#include "packages/extraction_plan.h"

#include <optional>
#include <utility>

#include "engine/text.h"
#include "packages/file_rules.h"

namespace morvex {

ExtractionPlan::ExtractionPlan(const TagContainer& files, TargetFolder& target) : target_(target) {
  open_.push_back({files, target.Path()});
  while (!open_.empty()) {
    Folder& folder = open_.back();
    if (folder.next == folder.soup.GetCount()) {
      open_.pop_back();
      continue;
    }
    const Nox::PString name = folder.soup.GetName(folder.next++);
    if (folder.seen.insert(name).second) Visit(folder, name);
  }
}

void ExtractionPlan::Visit(Folder& folder, Nox::PString name) {
  std::optional<std::string> path = TargetFolder::PathOf(folder.path, name);
  if (!path) return;
  switch (folder.soup.GetKind(name)) {
    case ChunkKind::kContainer:
      return AddFolder(folder.soup.GetContainer(name), *path);
    case ChunkKind::kBinary:
      if (HasAllowedExtension(*path)) AddFile(folder.soup.GetRaw(name), std::move(*path));
      return;
    default:
      steps_.push_back({ExtractionStep::Kind::kUnknown});
  }
}

// Folders that differ by case alone are one folder: the target finds the first again.
void ExtractionPlan::AddFolder(TagContainer soup, const std::string& path) {
  const auto [claim, isNew] = claimed_.try_emplace(Nox::ToLower(path), Use::kFolder);
  std::optional<std::string> made;
  if (claim->second == Use::kFolder) made = target_.MakeFolder(path);
  if (!made) return steps_.push_back({ExtractionStep::Kind::kBlocked});
  open_.push_back({std::move(soup), std::move(*made)});
}

void ExtractionPlan::AddFile(Raw raw, std::string path) {
  const auto [claim, isNew] = claimed_.try_emplace(Nox::ToLower(path), Use::kFile);
  ExtractionStep::Kind kind = ExtractionStep::Kind::kWrite;
  if (claim->second == Use::kFolder)
    kind = ExtractionStep::Kind::kBlocked;
  else if (!isNew)
    kind = ExtractionStep::Kind::kRewrite;
  steps_.push_back({kind, std::move(path), std::move(raw)});
}

}  // namespace morvex
