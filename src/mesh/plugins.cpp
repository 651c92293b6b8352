#include "mesh/plugins.h"

#include "engine/material_plugin.h"
#include "engine/resource_type.h"
#include "mesh/bump_materials.h"
#include "mesh/gloss_rust_material.h"
#include "mesh/mesh_resource.h"
#include "mesh/multi_pfx_material.h"

namespace {

template <typename T>
class Maker : public Nox::MaterialPlugin {
 public:
  explicit Maker(std::string_view id) : MaterialPlugin(T::kType, id) {}
  Nox::Ref<Nox::Material> CreateInstance() const override { return Nox::MakeRef<T>(); }
};

using MorvexBumpGlossMaterialPlugin = Maker<Nox::MorvexBumpGlossMaterial>;
using MorvexBumpMaterialPlugin = Maker<Nox::MorvexBumpMaterial>;
using MorvexGlossRustMaterialPlugin = Maker<Nox::MorvexGlossRustMaterial>;
using MorvexMultiPFXMaterialPlugin = Maker<Nox::MorvexMultiPFXMaterial>;
using IndexedMeshType = Nox::ResourceType<morvex::MorvexIndexedMeshResource>;
using LodMeshType = Nox::ResourceType<morvex::MorvexIndexedMeshLODResource>;

constexpr std::string_view kMeshFamily = "4C414E80-BBDA-11d4-9AD7-0001025364B8";
constexpr std::string_view kLodMeshId = "8FCC40D7-8BDD-4d14-B528-65692F5DF710";

// Each registers itself with the engine.
void MakePlugins() {
  new MorvexBumpGlossMaterialPlugin("F7478888-C721-48AB-B3C0-19621E66554E");
  new MorvexBumpMaterialPlugin("E34011F3-C721-48ba-B3C0-19621E408CBD");
  new MorvexGlossRustMaterialPlugin("AFCA4E1B-811A-56EE-89E4-CAB13F9B6712");
  new MorvexMultiPFXMaterialPlugin("643AFE90-426A-46EE-C19F-FFA0A471ABD7");
  new IndexedMeshType("morvex.im", "B9E68EA1-56A3-4a6d-9D5D-C5C020F944E6", kMeshFamily);
  new LodMeshType("morvex.lm.txt", kLodMeshId, kMeshFamily);
  new LodMeshType("morvex.lm", kLodMeshId, kMeshFamily);
}

}  // namespace

extern "C" void NoxGetPlugins() {
  [[maybe_unused]] static const bool kMade = (MakePlugins(), true);
}
