#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/config_parser.h"
#include "mesh/mesh_load.h"
#include "mesh/read_material.h"

namespace morvex {

// The materials that an imtxt describes. A block is for the materials of its name, with or without their type, if
// the display knows all the extensions that it needs.
class TextMaterials {
 public:
  TextMaterials(const Nox::ConfigData& top, const MeshDisplay& display);

  // What the first block for it says of the material of that decorated name; without a block a material with
  // nothing to it. False if the block's text is wrong, or if so many materials take so much from blocks that
  // the mesh would be many times its text.
  bool Extract(std::string_view name, MaterialSpec& spec);

 private:
  static constexpr std::size_t kMaxExtracted = 1 << 18;  // items of blocks, of all materials together

  struct Block {
    Nox::ConfigData data;
    std::size_t items;
  };
  std::size_t NumberOf(std::string_view name) const;

  std::vector<Block> blocks_;
  std::unordered_map<std::string_view, std::size_t> firstOf_;  // by the name a block is for
  std::size_t extracted_ = 0;
};

}  // namespace morvex
