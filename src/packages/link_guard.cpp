#include "packages/link_guard.h"

#include <algorithm>
#include <optional>

#include "engine/find.h"
#include "engine/mounts.h"
#include "engine/name_lookup.h"
#include "engine/path.h"
#include "engine/real_path.h"

namespace morvex {
namespace {

std::string RealRoot(const Nox::Location& root) {
  const std::optional<std::string> host = Nox::ResolveHostPath(root);
  const std::optional<std::string> found = host ? Nox::FindExisting(*host) : std::nullopt;
  return found ? Nox::RealPath(*found) : std::string();
}

}  // namespace

LinkGuard::LinkGuard(Nox::LocationView root) : root_(root.Copy()), way_{{"", false, ""}} {}

LinkGuard::Verdict LinkGuard::Enter(const Nox::DirEntry& folder) {
  Step step{folder.name, folder.isLink || way_.back().behindLink, ""};
  if (step.behindLink) {
    step.real = RealPathOf(folder.name, folder.isLink);
    if (!IsInsideRoot(step.real)) return Verdict::kOutside;
    if (IsOnWay(step.real)) return Verdict::kEndless;
    if (folder.isLink && linkedEntries_ >= kMaxLinkedEntries) return Verdict::kEndless;
  }
  way_.push_back(std::move(step));
  return Verdict::kEntered;
}

void LinkGuard::CountEntries(size_t count) {
  if (way_.back().behindLink) linkedEntries_ += count;
}

bool LinkGuard::LeadsInside(const std::string& name) {
  return IsInsideRoot(RealPathOf(name, true));
}

// A folder that is no link lies in the one above it, so that only links are asked about.
const std::string& LinkGuard::RealPathOfLast() {
  if (way_.front().real.empty()) way_.front().real = RealRoot(root_);
  for (size_t i = 1; i < way_.size(); ++i) {
    if (way_[i].real.empty()) way_[i].real = Nox::Path::AddPath(way_[i - 1].real, way_[i].name);
  }
  return way_.back().real;
}

std::string LinkGuard::RealPathOf(const std::string& name, bool isLink) {
  const std::string path = Nox::Path::AddPath(RealPathOfLast(), name);
  return isLink ? Nox::RealPath(path) : path;
}

// The root itself counts as inside: a link to it is endless, not private.
bool LinkGuard::IsInsideRoot(const std::string& real) const {
  return Nox::IsWithin(way_.front().real, real);
}

bool LinkGuard::IsOnWay(const std::string& real) const {
  return std::ranges::any_of(way_, [&](const Step& step) { return step.real == real; });
}

}  // namespace morvex
