#pragma once

#include <string_view>

#include "engine/material.h"
#include "engine/plugin.h"
#include "engine/reference.h"

namespace Nox {

// Makes the materials of one type for the MaterialManager.
class MaterialPlugin : public Plugin {
 public:
  // `type` as in "tbumptex".
  MaterialPlugin(std::string_view type, std::string_view id) : Plugin(type, id) {}

  // Null if such a material can't be made here.
  [[nodiscard]] virtual Ref<Material> CreateInstance() const = 0;

  // Null if nobody makes that type. Names don't tell cases apart.
  static const MaterialPlugin* Find(std::string_view type);
};

}  // namespace Nox
