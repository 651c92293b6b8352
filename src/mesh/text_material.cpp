#include "mesh/text_material.h"

#include <algorithm>
#include <array>

#include "engine/material_manager.h"
#include "engine/text.h"
#include "mesh/mesh_format.h"
#include "mesh/text_values.h"

// Material <name> {
//   Extension <name>          # any number: extensions of the display that this block needs
//   flag <truth>              # all of these are optional
//   opacity <number>
//   colour1 <r g b>           # and so on to colour4, as they are used: the fourth isn't doubled
//   power <number>
//   property <key> <value>    # any number
//   texture <slot> <file> [<weight>]   # any number
// }
namespace morvex {
namespace {

constexpr std::array<const char*, 4> kColourKeys = {"colour1", "colour2", "colour3", "colour4"};

bool IsUsable(const Nox::ConfigData& block, const MeshDisplay& display) {
  for (auto item = block.FirstChild(); item; item = item.Next()) {
    if (!Nox::EqualsIgnoreCase(item.Key(), "Extension")) continue;
    std::string needed;
    if (!(item >> needed) || needed.empty() ||
        std::find(display.extensions.begin(), display.extensions.end(), needed) == display.extensions.end())
      return false;
  }
  return true;
}

bool ReadColours(const Nox::ConfigData& block, Nox::DisplayMaterial& display) {
  for (std::size_t i = 0; i < kColourKeys.size(); ++i) {
    Nox::Colour& colour = display.colours[i];
    Nox::Vector3 rgb = {colour.r, colour.g, colour.b};
    if (!ReadVector(block.Find(kColourKeys[i]), rgb)) return false;
    colour = {rgb.x, rgb.y, rgb.z, colour.a};
  }
  return true;
}

bool ReadTexture(Nox::ConfigValues values, MaterialSpec& spec) {
  Nox::TextureDefinition& texture = spec.textures.emplace_back();
  std::string_view name;
  if (!NextCount(values, texture.slot) || !values.Next(name)) return false;
  texture.name = name;
  return values.AtEnd() || values.Next(texture.weight);
}

bool ReadProperty(Nox::ConfigValues values, MaterialSpec& spec) {
  std::string_view key;
  std::string_view value;
  if (!values.Next(key) || !values.Next(value)) return false;
  spec.properties.emplace_back(key, value);
  return true;
}

bool ReadLists(const Nox::ConfigData& block, MaterialSpec& spec) {
  for (auto item = block.FirstChild(); item; item = item.Next()) {
    if (Nox::EqualsIgnoreCase(item.Key(), "texture") && !ReadTexture(item.Values(), spec)) return false;
    if (Nox::EqualsIgnoreCase(item.Key(), "property") && !ReadProperty(item.Values(), spec)) return false;
  }
  return true;
}

}  // namespace

TextMaterials::TextMaterials(const Nox::ConfigData& top, const MeshDisplay& display) {
  for (auto item = top.FirstChild(); item; item = item.Next()) {
    if (!Nox::EqualsIgnoreCase(item.Key(), "Material") || !IsUsable(item, display)) continue;
    std::string_view name;
    item.Values().Next(name);
    firstOf_.try_emplace(name, blocks_.size());
    std::size_t items = 1;
    for (auto child = item.FirstChild(); child; child = child.Next())
      ++items;
    blocks_.push_back({item, items});
  }
}

std::size_t TextMaterials::NumberOf(std::string_view name) const {
  const auto found = firstOf_.find(name);
  return found == firstOf_.end() ? blocks_.size() : found->second;
}

bool TextMaterials::Extract(std::string_view name, MaterialSpec& spec) {
  spec.name = name;
  spec.display.colours[3].a = 1 / MeshFormat::kStoredColourScale;  // what a binary file makes of it
  const std::string_view plainName = Nox::MaterialManager::SplitDecoratedMaterialName(name).name;
  const std::size_t number = std::min(NumberOf(name), NumberOf(plainName));
  if (number == blocks_.size()) return true;
  const Nox::ConfigData& block = blocks_[number].data;
  extracted_ += blocks_[number].items;
  return extracted_ <= kMaxExtracted && ReadBool(block.Find("flag"), spec.flag) &&
         ReadFloat(block.Find("opacity"), spec.opacity) &&
         ReadFloat(block.Find("power"), spec.display.power) && ReadColours(block, spec.display) &&
         ReadLists(block, spec);
}

}  // namespace morvex
