// The materials that meshes ask for by name, and the plug-ins that make those of the product.

#include "engine/material.h"

#include <gtest/gtest.h>

#include <fstream>
#include <tuple>

#include "engine/geometry_chunk.h"
#include "engine/material_manager.h"
#include "engine/material_plugin.h"
#include "engine/resource_database.h"
#include "mesh/gloss_rust_material.h"
#include "mesh/plugins.h"
#include "tests/scratch_folder.h"

namespace Nox {
namespace {

using Result = MaterialManager::Result;

Ref<Material> Make(std::string_view name) {
  NoxGetPlugins();
  Ref<Material> material;
  EXPECT_EQ(MaterialManager().Create(material, name), Result::kMade) << name;
  return material;
}

Ref<GeometryChunk> ChunkOf(std::string_view material, StandardChunkHint hint = {}) {
  GeometryChunkSize size;
  size.vertices = 3;
  return Make(material)->CreateGeometryChunk(size, hint);
}

// "id:bytes" for each item of a vertex.
std::string Items(const GeometryChunk& chunk) {
  std::string items;
  for (const VertexType::Item& item : chunk.Vertices().Items())
    items += std::to_string(static_cast<int>(item.id)) + ":" + std::to_string(item.bytes) + " ";
  return items;
}

TEST(MaterialManager, SplitsNames) {
  const char* const rows[][3] = {
      {"hull.m.onetex", "hull", "onetex"},
      {"m.onetex", "", "onetex"},
      {"pack*a/b.im*hull.m.onetex", "pack*a/b.im*hull", "onetex"},
      {"a.m.b.m.c", "a.m.b", "c"},
      {"pack*a.im*m.onetex", "pack*a.im*", "onetex"},
      {"beam.onetex", "beam.onetex", ""},
      {"Hull.M.OneTex", "Hull", "OneTex"},
      {"hull", "hull", ""},
      {"hull.m.", "hull", ""},
      {"", "", ""},
  };
  for (const auto& [decorated, name, type] : rows) {
    const MaterialName split = MaterialManager::SplitDecoratedMaterialName(decorated);
    EXPECT_EQ(split.name, name) << decorated;
    EXPECT_EQ(split.type, type) << decorated;
  }
}

class MaterialTextures : public testing::Test {
 protected:
  MaterialTextures() {
    std::ofstream(folder_ / "a.tga");
    std::ofstream(folder_ / "b.texture.txt");
  }
  SetTextureResult Set(Material& material, uint32_t slot, const std::string& name) {
    return material.SetTexture(slot, database_, folder_ / name, 0.5F);
  }

  ScratchFolder folder_;
  ResourceDatabase database_{PString()};
};

TEST_F(MaterialTextures, GoIntoTheSlotsOfTheirType) {
  constexpr auto kTaken = SetTextureResult::kTaken, kNotFound = SetTextureResult::kNotFound,
                 kNoSuchSlot = SetTextureResult::kNoSuchSlot;
  const std::tuple<const char*, uint32_t, const char*, SetTextureResult> rows[] = {
      {"m.onetex", 0, "a.tga", kTaken},          {"m.onetex", 7, "gone.tga", kTaken},
      {"m.onetex", 8, "a.tga", kNoSuchSlot},     {"m.tbumptex", 8, "a.tga", kTaken},
      {"m.tbumptex", 8, "b.texture", kTaken},    {"m.tbumptex", 8, "gone.tga", kNotFound},
      {"m.tbumptex", 0, "gone.tga", kTaken},     {"m.tbumptex", 9, "a.tga", kNoSuchSlot},
      {"m.tbumpgloss", 8, "a.tga", kTaken},      {"m.tbumpgloss", 9, "a.tga", kTaken},
      {"m.tglossrust", 8, "a.tga", kNoSuchSlot}, {"m.tmpfx", 12, "a.tga", kTaken},
      {"m.tmpfx", 12, "gone.tga", kNotFound},    {"m.tmpfx", 8, "a.tga", kNoSuchSlot},
  };
  for (const auto& [type, slot, name, result] : rows) {
    const Ref<Material> material = Make(type);
    EXPECT_EQ(Set(*material, slot, name), result) << type << " " << slot;
    const TextureDefinition expected = {slot, folder_ / name, 0.5F};
    EXPECT_EQ(material->GetTextureDefinitions(), std::vector<TextureDefinition>{expected}) << type;
    EXPECT_EQ(!material->GetTexture(slot).empty(), result == kTaken) << type;
  }
  for (const char* type : {"notex", "nofogtex", "gloss", "reflect", "OneTex"})
    EXPECT_TRUE(Make(std::string("m.") + type)->GetType().EqualsIgnoreCase(type));
}

TEST_F(MaterialTextures, OneThatIsMissingLeavesABumpMapButNoSecondTexture) {
  const Ref<Material> bump = Make("m.tbumptex"), effects = Make("m.tmpfx");
  Set(*bump, 8, "a.tga");
  Set(*bump, 8, "gone.tga");
  EXPECT_EQ(bump->GetTexture(8), folder_ / "a.tga");
  Set(*effects, 12, "a.tga");
  Set(*effects, 12, "gone.tga");
  EXPECT_EQ(effects->GetTexture(12), "");
}

TEST(MaterialChunks, AreOfTheirType) {
  StandardChunkHint hint;
  hint.axis = hint.softwareLighting = hint.skinned = true;
  const Ref<GeometryChunk> plain = ChunkOf("m.onetex", hint), bump = ChunkOf("m.tbumptex", hint),
                           gloss = ChunkOf("m.tbumpgloss"), effects = ChunkOf("m.tmpfx", hint);
  EXPECT_TRUE(plain->GetStream(StreamId::kAxis));
  EXPECT_EQ(Items(*bump), "1:12 4:12 15:8 16:12 ");
  EXPECT_EQ(Items(*gloss), Items(*bump));
  EXPECT_EQ(Items(*effects), "1:12 2:4 15:8 16:8 ");
  EXPECT_FALSE(bump->Hint().softwareLighting);
  EXPECT_TRUE(bump->Hint().softwareSkinned) << "in place of the lighting";
  hint.softwareLighting = false;
  EXPECT_FALSE(ChunkOf("m.tbumptex", hint)->Hint().softwareSkinned);
  const PString age(MorvexGlossRustMaterial::kRustAge);
  EXPECT_EQ(ChunkOf("m.tglossrust")->GetProperty(age), 0.0F) << "rust begins new";
  EXPECT_EQ(plain->GetProperty(age), std::nullopt);
}

}  // namespace
}  // namespace Nox
