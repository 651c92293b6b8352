#include "tagdata/tree_builder.h"

#include "tagdata/data_tag.h"
#include "tagdata/tag_container.h"

namespace morvex {

void TreeBuilder::Leaf(std::string_view name, ChunkKind kind, const void* data, size_t size) {
  open_.back()->SetChild(Nox::PString(name), TDBDataTag::Make(kind, data, static_cast<uint32_t>(size)));
}

void TreeBuilder::String(std::string_view name, std::string_view text) {
  open_.back()->SetChild(Nox::PString(name), TDBDataTag::MakeString(text));
}

void TreeBuilder::Remove(std::string_view name) {
  open_.back()->RemoveNamed(Nox::PString(name));
}

void TreeBuilder::Open(std::string_view name) {
  auto soup = Nox::MakeRef<TDBContainerTag>();
  open_.back()->SetChild(Nox::PString(name), soup);
  open_.push_back(soup);
}

TagContainer TreeBuilder::Finish() {
  const ChunkRef root = open_.front();
  return root->GetChildCount() == 0 ? TagContainer() : TagContainer(root);
}

}  // namespace morvex
