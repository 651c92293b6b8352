#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "engine/pstring.h"
#include "tagdata/acs_chunk.h"

namespace morvex {

// The names of the nested soups that a walk has met in one soup.
class MetNames {
 public:
  // True for a name that wasn't met before.
  bool Add(Nox::PString name) {
    if (many_.empty()) {
      for (const Nox::PString met : few_) {
        if (met == name) return false;
      }
      if (few_.size() < kFew) {
        few_.push_back(name);
        return true;
      }
      many_.insert(few_.begin(), few_.end());
    }
    return many_.insert(name).second;
  }

 private:
  static constexpr size_t kFew = 16;

  std::vector<Nox::PString> few_;
  std::unordered_set<Nox::PString> many_;  // empty as long as `few_` holds all
};

// Bounds a walk over all chunks by name. A child is fetched by its name, so twins lead to the first of them
// twice; where each level of a file has a pair of twins, the walk would double with each level. Twins are
// gone into again until that has cost a good number of tags, far beyond all real content; then no more.
class RepeatGuard {
 public:
  // Whether a nested soup may be gone into. `repeated`: it, or a soup around it, was gone into before.
  bool MayEnter(const ACSChunk& soup, bool repeated) {
    if (!repeated) return true;
    const uint64_t cost = uint64_t{1} + soup.GetChildCount();
    if (cost > left_) return false;
    left_ -= cost;
    return true;
  }

 private:
  uint64_t left_ = 65536;
};

}  // namespace morvex
