#include "mesh/skeleton_of_influences.h"

#include <algorithm>
#include <unordered_map>

namespace morvex {
namespace {

using Bones = std::vector<Skeleton::Bone>;

// Walks up from each bone until it meets one that is known to hang under the root. Coming back to a bone of
// the same walk is a circle; the bone that closes it is hung under the root.
void OpenCircles(Bones& bones, std::uint32_t root) {
  constexpr std::uint32_t kNever = 0;
  std::vector<std::uint32_t> walkOf(bones.size(), kNever);
  for (std::uint32_t i = 0; i < bones.size(); ++i) {
    const std::uint32_t walk = i + 1;
    for (std::uint32_t at = i; walkOf[at] == kNever && at != root; at = bones[at].parent) {
      walkOf[at] = walk;
      if (walkOf[bones[at].parent] == walk) bones[at].parent = root;
    }
  }
}

}  // namespace

Skeleton SkeletonOfInfluences(std::vector<MeshInfluence>& influences) {
  const auto first = std::find_if(influences.begin(), influences.end(),
                                  [](const MeshInfluence& influence) { return influence.parent.Empty(); });
  if (first == influences.end()) return {};
  const auto root = static_cast<std::uint32_t>(first - influences.begin());

  std::unordered_map<Nox::PString, std::uint32_t> numbers;
  numbers.reserve(influences.size());
  for (std::uint32_t i = 0; i < influences.size(); ++i)
    numbers.try_emplace(influences[i].name, i);

  Bones bones;
  bones.reserve(influences.size());
  for (std::uint32_t i = 0; i < influences.size(); ++i) {
    MeshInfluence& influence = influences[i];
    std::uint32_t parent = root;
    if (i == root) {
      parent = Skeleton::kNone;
    } else if (influence.parent.Empty()) {
      influence.parent = first->name;
    } else if (const auto named = numbers.find(influence.parent); named != numbers.end()) {
      parent = named->second;
    }
    bones.push_back({influence.name, influence.position, influence.rotation,
                     Nox::ToQuaternion(influence.rotation), parent});
  }
  OpenCircles(bones, root);
  return Skeleton::FromTree(std::move(bones));
}

}  // namespace morvex
