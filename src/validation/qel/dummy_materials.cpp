// The materials that meshes may ask for are made once at the start, so that the log tells which of them can't be.

#include <array>
#include <string>
#include <string_view>

#include "engine/render_kernel.h"
#include "engine/vertex_type.h"
#include "mesh/bump_materials.h"
#include "tagdata/morvex_log.h"
#include "validation/qel/data_manager.h"

namespace QELLib {
namespace {

struct DummyMaterial {
  std::string_view name;
  std::string_view loggedName;
};
// The odd name in the log is what readers of logs know.
constexpr std::array<DummyMaterial, 8> kDummies = {{
    {"m.tbumptex", "m.tbumptex"},
    {"m.tbumpgloss", "m.tbumpgloss"},
    {"m.tglossrust", "m.tglossrust"},
    {"m.notex", "m.notex"},
    {"m.onetex", "m.onetex"},
    {"m.nofogtex", "m.nofogtex"},
    {"m.gloss", "m.glose"},
    {"m.reflect", "m.reflect"},
}};

}  // namespace

void DataManager::RegisterMorvexBumpVertexType() const {
  Nox::VertexType::RegisterName(Nox::kBumpVertexNumber, Nox::PString(Nox::kBumpVertexName));
  const Nox::MaterialManager* const materials = engine_ == nullptr ? nullptr : engine_->GetMaterialManager();
  if (materials == nullptr) return;  // any material can be had then
  for (const DummyMaterial& dummy : kDummies) {
    Nox::Ref<Nox::Material> material;
    const auto made = materials->Create(material, "MorvexDummyLoad." + std::string(dummy.name));
    if (made == Nox::MaterialManager::Result::kMade) continue;
    morvex::MorvexLog::Message("DataManager::RegisterMorvexBumpVertexType> Unable to load '%s'",
                               dummy.loggedName);
  }
}

}  // namespace QELLib
