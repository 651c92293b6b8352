#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_set>
#include <vector>

#include "engine/pstring.h"
#include "engine/reference.h"
#include "tagdata/acs_chunk.h"

namespace morvex {

// Goes through a soup and all soups in it, in order, without using the stack by depth:
//
//   SoupWalk walk(root);
//   while (walk.Next()) switch (walk.What()) ...
//
// A child is fetched by its name, so twins lead to the first of them twice. Where each level of a file holds a pair
// of twins, a walk would double with each level; so twins are gone into again until that has cost a good number of
// tags, far beyond all real content, and are passed over from then on.
class SoupWalk {
 public:
  enum class Event { kLeaf, kEnter, kLeave };

  static constexpr size_t kAnyDepth = SIZE_MAX;

  // Soups below level `maxDepth` are passed over; the children of `root` are level 1. `root` outlives the walk.
  explicit SoupWalk(const ACSChunk& root, size_t maxDepth = kAnyDepth);

  // False at the end. The root itself is neither entered nor left.
  bool Next();

  Event What() const { return event_; }
  // Of a leaf or a soup being entered.
  Nox::PString Name() const { return name_; }
  const ChunkRef& Chunk() const { return chunk_; }
  // How many soups, besides the root, are around the leaf, or around the soup that was entered or left.
  size_t Depth() const { return depth_; }

 private:
  // The names of the nested soups met in one soup.
  class MetNames {
   public:
    // True for a name that wasn't met before.
    bool Add(Nox::PString name);

   private:
    std::vector<Nox::PString> few_;
    std::unordered_set<Nox::PString> many_;  // empty as long as `few_` holds all
  };

  struct Level {
    Nox::Ref<const ACSChunk> soup;
    uint32_t next = 0;
    bool repeated = false;  // it, or a soup around it, was gone into before
    MetNames met = {};
  };

  bool MayEnter(Level& level);
  void Leave();

  const size_t maxDepth_;
  std::vector<Level> levels_;
  uint64_t repeatsLeft_ = 65536;  // tags
  Event event_ = Event::kLeaf;
  Nox::PString name_;
  ChunkRef chunk_;
  size_t depth_ = 0;
};

}  // namespace morvex
