#include "engine/material_manager.h"
#include "mesh/indexed_mesh_definition.h"
#include "mesh/read_material.h"

namespace morvex {
namespace {

// With its separator; empty for a name without folders.
std::string_view FolderOf(std::string_view name) {
  return name.substr(0, name.find_last_of("/\\") + 1);
}

std::string_view FileOf(std::string_view name) {
  return name.substr(FolderOf(name).size());
}

MeshResult AskManager(const std::string& name, const MeshLoadContext& context,
                      Nox::Ref<Nox::Material>& material) {
  using Result = Nox::MaterialManager::Result;
  const Result made = context.materials->Create(material, name);
  if (made == Result::kMade) return RES_SUCCESS;
  if (context.missingMaterials != nullptr) context.missingMaterials->emplace_back(name);
  if (!context.allowMaterialFallback)
    return made == Result::kCannotMake ? RES_UNSUPPORTED_MATERIAL : RES_UNKNOWN_MATERIAL;

  const std::string_view type = Nox::MaterialManager::SplitDecoratedMaterialName(name).type;
  if (context.materials->Create(material, "m." + std::string(type)) != Result::kMade)
    return RES_UNKNOWN_MATERIAL;
  material->SetRequestName(name);
  return RES_SUCCESS;
}

}  // namespace

std::string MaterialPrefix(const MeshLoadContext& context) {
  return context.ownerName + "*" + context.resourceName + "*";
}

MeshResult CreateMaterial(MaterialSpec spec, const MeshLoadContext& context,
                          MorvexIndexedMeshDefinition& definition, Nox::Ref<Nox::Material>& material) {
  const std::string name = definition.materialPrefix + spec.name;
  if (context.materials == nullptr) {
    material = Nox::MakeNullMaterial(name);
  } else if (const MeshResult result = AskManager(name, context, material)) {
    return result;
  }
  material->SetDisplayMaterialProperties(spec.display);
  material->SetFlag(spec.flag);
  material->SetOpacity(spec.opacity);
  for (auto& [key, value] : spec.properties)
    material->AddProperty(std::move(key), std::move(value));
  for (Nox::TextureDefinition& texture : spec.textures) {
    texture.name = std::string(FolderOf(context.resourceName)).append(FileOf(texture.name));
    definition.pendingTextures.push_back({material, std::move(texture)});
  }
  return RES_SUCCESS;
}

}  // namespace morvex
