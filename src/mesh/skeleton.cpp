#include "mesh/skeleton.h"

#include <utility>

namespace morvex {

Skeleton Skeleton::FromTree(std::vector<Bone> bones) {
  Skeleton skeleton;
  skeleton.bones_ = std::move(bones);
  skeleton.numbers_.reserve(skeleton.bones_.size());
  for (std::uint32_t i = 0; i < skeleton.bones_.size(); ++i) {
    skeleton.numbers_.try_emplace(skeleton.bones_[i].name, i);
    if (skeleton.bones_[i].parent == kNone) skeleton.root_ = i;
  }
  return skeleton;
}

std::uint32_t Skeleton::Add(const Bone& bone) {
  const auto number = static_cast<std::uint32_t>(bones_.size());
  bones_.push_back(bone);
  numbers_.try_emplace(bone.name, number);
  if (number == 0) {
    root_ = 0;
    bones_[0].parent = kNone;
  }
  return number;
}

std::uint32_t Skeleton::Find(Nox::PString name) const {
  const auto found = numbers_.find(name);
  return found == numbers_.end() ? kNone : found->second;
}

std::vector<std::uint32_t> Skeleton::DepthFirst() const {
  if (Empty()) return {};
  // Lists of children, linked through the numbers, the first child at the head.
  std::vector<std::uint32_t> firstChild(bones_.size(), kNone);
  std::vector<std::uint32_t> nextSibling(bones_.size(), kNone);
  for (auto i = static_cast<std::uint32_t>(bones_.size()); i-- > 0;) {
    if (i == root_) continue;
    nextSibling[i] = std::exchange(firstChild[bones_[i].parent], i);
  }
  std::vector<std::uint32_t> order;
  order.reserve(bones_.size());
  std::vector<std::uint32_t> waiting = {root_};
  while (!waiting.empty()) {
    const std::uint32_t bone = waiting.back();
    waiting.pop_back();
    order.push_back(bone);
    if (nextSibling[bone] != kNone) waiting.push_back(nextSibling[bone]);
    if (firstChild[bone] != kNone) waiting.push_back(firstChild[bone]);
  }
  return order;
}

}  // namespace morvex
