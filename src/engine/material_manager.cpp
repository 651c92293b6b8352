#include "engine/material_manager.h"

#include <algorithm>
#include <array>
#include <string>

#include "engine/material_plugin.h"
#include "engine/text.h"

namespace Nox {
namespace {

constexpr std::string_view kTypeMark = "m.";
constexpr char kNamePartEnd = '*';

constexpr std::array<std::string_view, 5> kEngineTypes = {"notex", "onetex", "nofogtex", "gloss", "reflect"};

bool IsEngineType(std::string_view type) {
  return std::any_of(kEngineTypes.begin(), kEngineTypes.end(),
                     [&](std::string_view known) { return EqualsIgnoreCase(known, type); });
}

}  // namespace

const MaterialPlugin* MaterialPlugin::Find(std::string_view type) {
  for (const Plugin* plugin : Plugin::All()) {
    const auto* const maker = dynamic_cast<const MaterialPlugin*>(plugin);
    if (maker != nullptr && EqualsIgnoreCase(maker->Name(), type)) return maker;
  }
  return nullptr;
}

MaterialName MaterialManager::SplitDecoratedMaterialName(std::string_view decoratedName) {
  const std::string lowered = ToLower(decoratedName);
  for (std::size_t mark = lowered.rfind(kTypeMark); mark != lowered.npos;
       mark = lowered.rfind(kTypeMark, mark - 1)) {
    const std::string_view name = decoratedName.substr(0, mark);
    const std::string_view type = decoratedName.substr(mark + kTypeMark.size());
    if (name.ends_with('.')) return {name.substr(0, mark - 1), type};
    if (name.empty() || name.ends_with(kNamePartEnd)) return {name, type};
  }
  return {decoratedName, {}};
}

MaterialManager::Result MaterialManager::Create(Ref<Material>& material,
                                                std::string_view decoratedName) const {
  const std::string_view type = SplitDecoratedMaterialName(decoratedName).type;
  const MaterialPlugin* const plugin = MaterialPlugin::Find(type);
  if (plugin != nullptr) {
    material = plugin->CreateInstance();
  } else {
    material = IsEngineType(type) ? MakeRef<Material>(PString(type).ToLower()) : nullptr;
  }
  if (material == nullptr) return plugin != nullptr ? Result::kCannotMake : Result::kUnknownType;
  material->SetRequestName(decoratedName);
  return Result::kMade;
}

Ref<Material> MakeNullMaterial(std::string_view decoratedName) {
  const MaterialName split = MaterialManager::SplitDecoratedMaterialName(decoratedName);
  Ref<Material> material = MakeRef<Material>(PString(split.type));
  material->SetRequestName(decoratedName);
  return material;
}

}  // namespace Nox
