#pragma once

#include <string_view>

#include "engine/material.h"
#include "engine/pstring.h"
#include "engine/reference.h"

namespace Nox {

// A material's name as files have it: "<name>.m.<type>". The name may be empty ("m.<type>"), also behind the '*'
// that ends what a mesh puts in front of its names, and it may hold points of its own; the last "m." counts.
struct MaterialName {
  std::string_view name;
  std::string_view type;  // without the "m."; empty if there is none
};

// Makes materials by their type: the engine's own and those of registered plug-ins.
class MaterialManager {
 public:
  enum class Result { kMade = 0, kCannotMake = 3, kUnknownType = 4 };

  // Null in `material` unless kMade. The material's request name is `decoratedName`.
  [[nodiscard]] Result Create(Ref<Material>& material, std::string_view decoratedName) const;

  // Views into `decoratedName`.
  static MaterialName SplitDecoratedMaterialName(std::string_view decoratedName);
};

// The material of a mesh that is loaded where nothing can be drawn, so that there is no manager: of the type
// that the file names, known or not.
[[nodiscard]] Ref<Material> MakeNullMaterial(std::string_view decoratedName);

}  // namespace Nox
