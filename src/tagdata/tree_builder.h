#pragma once

#include <vector>

#include "tagdata/container_tag.h"
#include "tagdata/soup_builder.h"

namespace morvex {

// Builds a tree of tags in memory, with names of any length.
class TreeBuilder final : public SoupBuilder {
 public:
  void Leaf(std::string_view name, ChunkKind kind, const void* data, size_t size) override;
  void String(std::string_view name, std::string_view text) override;
  void Remove(std::string_view name) override;
  void Open(std::string_view name) override;
  void Close() override { open_.pop_back(); }
  TagContainer Finish() override;

 private:
  // From the root to the soup that takes the next tag.
  std::vector<Nox::Ref<TDBContainerTag>> open_{Nox::MakeRef<TDBContainerTag>()};
};

}  // namespace morvex
