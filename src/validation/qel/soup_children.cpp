#include "validation/qel/soup_children.h"

#include <unordered_map>
#include <utility>
#include <vector>

#include "tagdata/container_tag.h"
#include "tagdata/tag_value.h"

namespace QELLib {

using morvex::ACSChunk;
using morvex::ChunkKind;
using morvex::ChunkRef;
using morvex::TagContainer;
using morvex::TDBContainerTag;

namespace {

struct Level {
  ChunkRef from;
  Nox::Ref<TDBContainerTag> to;
};

// Of several children with one name a look-up finds the first, so each is taken out before the next is read.
void CopyChildren(const Level& level, std::vector<Level>& deeper) {
  std::vector<Nox::PString> names;
  std::unordered_map<Nox::PString, size_t> left;
  for (uint32_t i = 0; i < level.from->GetChildCount(); ++i) {
    names.push_back(level.from->GetChildName(i));
    ++left[names.back()];
  }
  for (const Nox::PString name : names) {
    ChunkRef child = level.from->GetChunk(name);
    if (--left[name] != 0) level.from->RemoveNamed(name);
    if (child->GetKind() == ChunkKind::kContainer) {
      const auto copy = Nox::MakeRef<TDBContainerTag>();
      level.to->AddChild(name, copy);
      deeper.push_back({std::move(child), copy});
    } else {
      level.to->AddChild(name, std::move(child));
    }
  }
}

}  // namespace

ChunkRef ChildAt(const TagContainer& soup, uint32_t number) {
  if (number >= soup.GetCount()) return morvex::NullChunk();
  if (const auto* tree = dynamic_cast<const TDBContainerTag*>(soup.Chunk())) return tree->GetChildAt(number);
  return soup.Chunk()->GetChunk(soup.GetName(number));
}

std::string TextOf(const ACSChunk& leaf) {
  if (leaf.GetKind() == ChunkKind::kNull) return {};
  return std::string(morvex::TagValue(leaf, ChunkKind::kString).Text());
}

TagContainer TakeAsTree(const TagContainer& soup) {
  const auto root = Nox::MakeRef<TDBContainerTag>();
  if (soup.IsEmpty()) return TagContainer(root);
  std::vector<Level> levels = {{ChunkRef(const_cast<ACSChunk*>(soup.Chunk())), root}};
  while (!levels.empty()) {
    const Level level = levels.back();
    levels.pop_back();
    CopyChildren(level, levels);
  }
  return TagContainer(root);
}

}  // namespace QELLib
