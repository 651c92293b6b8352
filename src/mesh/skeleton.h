#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "engine/pstring.h"
#include "engine/vector_math.h"

namespace morvex {

// The bones of a mesh, a tree under one root. Kept as a row of bones with the numbers of their parents, so that
// a tree may be as deep as it likes. Nothing in it is ever part of a circle.
class Skeleton {
 public:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  struct Bone {
    Nox::PString name;
    Nox::Vector3 position;
    Nox::Matrix3 rotation;        // one turn in both forms: files hold
    Nox::Quaternion orientation;  // sometimes the one, sometimes the other
    std::uint32_t parent = kNone;
  };

  // Of a row of bones whose parents are numbers within it; exactly one has none, and each hangs, by however
  // many steps, under that one.
  static Skeleton FromTree(std::vector<Bone> bones);

  bool Empty() const { return bones_.empty(); }
  std::size_t Size() const { return bones_.size(); }
  const Bone& At(std::uint32_t number) const { return bones_[number]; }
  // The number of the root; kNone without bones.
  std::uint32_t Root() const { return root_; }

  // The first bone ever added becomes the root, whatever it names as its parent. Gives the bone's number.
  std::uint32_t Add(const Bone& bone);
  // The first bone that was added under that name, or kNone.
  std::uint32_t Find(Nox::PString name) const;

  // The numbers of all bones: each behind its parent and before its next sibling, siblings in the order in
  // which they were added.
  std::vector<std::uint32_t> DepthFirst() const;

 private:
  std::vector<Bone> bones_;
  std::unordered_map<Nox::PString, std::uint32_t> numbers_;
  std::uint32_t root_ = kNone;
};

}  // namespace morvex
