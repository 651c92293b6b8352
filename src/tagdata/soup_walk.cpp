#include "tagdata/soup_walk.h"

#include <algorithm>

namespace morvex {
namespace {

constexpr size_t kFew = 16;

}  // namespace

bool SoupWalk::MetNames::Add(Nox::PString name) {
  if (many_.empty()) {
    if (std::find(few_.begin(), few_.end(), name) != few_.end()) return false;
    if (few_.size() < kFew) {
      few_.push_back(name);
      return true;
    }
    many_.insert(few_.begin(), few_.end());
  }
  return many_.insert(name).second;
}

SoupWalk::SoupWalk(const ACSChunk& root, size_t maxDepth) : maxDepth_(maxDepth) {
  levels_.push_back({Nox::Ref<const ACSChunk>(&root)});
}

bool SoupWalk::Next() {
  while (!levels_.empty()) {
    Level& level = levels_.back();
    if (level.next >= level.soup->GetChildCount()) {
      Leave();
      return !levels_.empty();
    }
    depth_ = levels_.size() - 1;
    name_ = level.soup->GetChildName(level.next++);
    chunk_ = level.soup->GetChunk(name_);
    event_ = chunk_->GetKind() == ChunkKind::kContainer ? Event::kEnter : Event::kLeaf;
    if (event_ == Event::kLeaf || MayEnter(level)) return true;
  }
  return false;
}

bool SoupWalk::MayEnter(Level& level) {
  if (depth_ >= maxDepth_) return false;
  const bool repeated = !level.met.Add(name_) || level.repeated;
  if (repeated) {
    const uint64_t cost = uint64_t{1} + chunk_->GetChildCount();
    if (cost > repeatsLeft_) return false;
    repeatsLeft_ -= cost;
  }
  levels_.push_back({chunk_, 0, repeated});
  return true;
}

void SoupWalk::Leave() {
  levels_.pop_back();
  if (levels_.empty()) return;
  event_ = Event::kLeave;
  depth_ = levels_.size() - 1;
}

}  // namespace morvex
