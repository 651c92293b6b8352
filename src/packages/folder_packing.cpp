#include "packages/folder_packing.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "engine/parallel.h"
#include "engine/text.h"
#include "packages/asset_walk.h"
#include "packages/file_coding.h"
#include "packages/file_report.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

using Walk = std::vector<WalkEntry>;

// The coded form of each file of a walk, in its order.
std::vector<CodedFile> CodeFiles(const Walk& walk, Nox::PString base, std::string_view compression) {
  std::vector<const WalkEntry*> files;
  for (const WalkEntry& entry : walk) {
    if (entry.finding == WalkFinding::kFile) files.push_back(&entry);
  }
  std::vector<CodedFile> coded(files.size());
  Nox::ParallelFor(files.size(), Nox::WorkerCount(), [&](size_t i) {
    coded[i] = CodeFile({base, files[i]->path}, compression);
  });
  return coded;
}

// Puts what a walk found into a soup, and what is wrong into the log, both in the order of the walk.
class SoupBuilder {
 public:
  SoupBuilder(TagContainer& files, ResultsLog& log) : log_(log) { open_.push_back({"", files}); }

  bool Succeeded() const { return succeeded_; }

  void EnterFolder(const WalkEntry& entry) { open_.push_back({Nox::ToLower(entry.name), {}}); }

  // The folder takes the place of an entry of its name.
  void LeaveFolder() {
    Folder folder = std::move(open_.back());
    open_.pop_back();
    open_.back().soup.SetContainer(Nox::PString(folder.name), std::move(folder.soup));
  }

  // A file stands beside an entry of its name, and only the first of the two can be read back.
  void AddFile(const WalkEntry& entry, const CodedFile& file, std::string_view compression) {
    if (file.failure != CodingFailure::kNone) {
      succeeded_ = false;
      return ReportCoding(log_, file.failure, entry.path, compression);
    }
    const ChunkRef soup = open_.back().soup.GetRoot();
    soup->AddChild(Nox::PString(Nox::ToLower(entry.name)), soup->CreateChunk(ChunkKind::kBinary, file.raw));
  }

  void Refuse(const WalkEntry& entry) {
    succeeded_ = false;
    ReportEntry(log_, entry, FileReporter::kPacking);
  }

 private:
  struct Folder {
    std::string name;
    TagContainer soup;
  };

  ResultsLog& log_;
  std::vector<Folder> open_;
  bool succeeded_ = true;
};

}  // namespace

bool AddFolder(TagContainer& files, Nox::PString base, std::string_view path, std::string_view compression,
               ResultsLog& log, unsigned flags) {
  const Walk walk = WalkAssetFolder({base, path});
  const std::vector<CodedFile> coded = CodeFiles(walk, base, compression);
  auto nextCoded = coded.begin();
  files.GetRoot();
  SoupBuilder soup(files, log);
  for (const WalkEntry& entry : walk) {
    switch (entry.finding) {
      case WalkFinding::kFile:
        soup.AddFile(entry, *nextCoded++, compression);
        break;
      case WalkFinding::kFolder:
        soup.EnterFolder(entry);
        break;
      case WalkFinding::kFolderEnd:
        soup.LeaveFolder();
        break;
      case WalkFinding::kBadExtension:
        if ((flags & kPassOverOtherFiles) == 0) soup.Refuse(entry);
        break;
      default:
        soup.Refuse(entry);
    }
  }
  return soup.Succeeded();
}

bool AddFile(Raw& raw, Nox::PString base, std::string_view path, std::string_view compression,
             ResultsLog& log) {
  CodedFile file = CodeFile({base, path}, compression);
  raw = std::move(file.raw);
  if (file.failure == CodingFailure::kNone) return true;
  ReportCoding(log, file.failure, path, compression);
  return false;
}

bool CheckFolder(Nox::PString base, std::string_view path, ResultsLog& log) {
  bool succeeded = true;
  for (const WalkEntry& entry : WalkAssetFolder({base, path})) {
    if (IsTaken(entry.finding)) continue;
    succeeded = false;
    ReportEntry(log, entry, FileReporter::kCheck);
  }
  return succeeded;
}

}  // namespace morvex
