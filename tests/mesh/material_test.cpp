// The materials that meshes ask for by name, and the plug-ins that make those of the product.

#include "engine/material.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

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

TEST(Plugins, AreRegisteredInOrderAndOnce) {
  NoxGetPlugins();
  NoxGetPlugins();
  std::string found;
  for (const Plugin* plugin : Plugin::All()) {
    found += std::string(plugin->Name()) + " " + std::string(plugin->Id());
    if (!plugin->FamilyId().empty()) found += " " + std::string(plugin->FamilyId());
    found += "\n";
  }
  EXPECT_EQ(found,
            "tbumpgloss F7478888-C721-48AB-B3C0-19621E66554E\n"
            "tbumptex E34011F3-C721-48ba-B3C0-19621E408CBD\n"
            "tglossrust AFCA4E1B-811A-56EE-89E4-CAB13F9B6712\n"
            "tmpfx 643AFE90-426A-46EE-C19F-FFA0A471ABD7\n"
            "morvex.im B9E68EA1-56A3-4a6d-9D5D-C5C020F944E6 4C414E80-BBDA-11d4-9AD7-0001025364B8\n"
            "morvex.lm.txt 8FCC40D7-8BDD-4d14-B528-65692F5DF710 4C414E80-BBDA-11d4-9AD7-0001025364B8\n"
            "morvex.lm 8FCC40D7-8BDD-4d14-B528-65692F5DF710 4C414E80-BBDA-11d4-9AD7-0001025364B8\n");
}

TEST(MaterialManager, SplitsNames) {
  struct Row {
    const char* decorated;
    const char* name;
    const char* type;
  };
  const Row rows[] = {
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
  for (const Row& row : rows) {
    const MaterialName split = MaterialManager::SplitDecoratedMaterialName(row.decorated);
    EXPECT_EQ(split.name, row.name) << row.decorated;
    EXPECT_EQ(split.type, row.type) << row.decorated;
  }
}

TEST(MaterialManager, KnowsTheTypes) {
  for (const char* type : {"notex", "onetex", "nofogtex", "gloss", "reflect", "tbumptex", "tbumpgloss",
                           "tglossrust", "tmpfx", "OneTex"}) {
    const std::string name = std::string("hull.m.") + type;
    const Ref<Material> material = Make(name);
    EXPECT_TRUE(material->GetType().EqualsIgnoreCase(type));
    EXPECT_EQ(material->GetRequestName(), name);
  }
  Ref<Material> material = Make("m.notex");
  for (const char* name : {"hull.m.velvet", "hull", "hull.m.", ""}) {
    EXPECT_EQ(MaterialManager().Create(material, name), Result::kUnknownType) << name;
    EXPECT_EQ(material, nullptr) << name;
  }
}

TEST(MaterialManager, TellsOfATypeThatCannotBeMade) {
  struct Broken : MaterialPlugin {
    Broken() : MaterialPlugin("broken", "") {}
    Ref<Material> CreateInstance() const override { return nullptr; }
  };
  Ref<Material> material;
  {
    const Broken plugin;
    EXPECT_EQ(MaterialManager().Create(material, "hull.m.broken"), Result::kCannotMake);
  }
  EXPECT_EQ(MaterialManager().Create(material, "hull.m.broken"), Result::kUnknownType) << "it is gone";
}

TEST(MaterialManager, NullMaterialsAreOfAnyType) {
  const Ref<Material> material = MakeNullMaterial("hull.m.velvet");
  EXPECT_EQ(material->GetType(), "velvet");
  EXPECT_EQ(material->GetRequestName(), "hull.m.velvet");
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
  struct Row {
    const char* material;
    uint32_t slot;
    const char* name;
    SetTextureResult result;
  };
  const Row rows[] = {
      {"m.onetex", 0, "a.tga", kTaken},          {"m.onetex", 7, "gone.tga", kTaken},
      {"m.onetex", 8, "a.tga", kNoSuchSlot},     {"m.tbumptex", 8, "a.tga", kTaken},
      {"m.tbumptex", 8, "b.texture", kTaken},    {"m.tbumptex", 8, "gone.tga", kNotFound},
      {"m.tbumptex", 0, "gone.tga", kTaken},     {"m.tbumptex", 9, "a.tga", kNoSuchSlot},
      {"m.tbumpgloss", 8, "a.tga", kTaken},      {"m.tbumpgloss", 9, "a.tga", kTaken},
      {"m.tglossrust", 8, "a.tga", kNoSuchSlot}, {"m.tmpfx", 12, "a.tga", kTaken},
      {"m.tmpfx", 12, "gone.tga", kNotFound},    {"m.tmpfx", 8, "a.tga", kNoSuchSlot},
  };
  for (const Row& row : rows) {
    const Ref<Material> material = Make(row.material);
    EXPECT_EQ(Set(*material, row.slot, row.name), row.result) << row.material << " " << row.slot;
    const TextureDefinition expected = {row.slot, folder_ / row.name, 0.5F};
    EXPECT_EQ(material->GetTextureDefinitions(), std::vector<TextureDefinition>{expected}) << row.material;
    EXPECT_EQ(!material->GetTexture(row.slot).empty(), row.result == kTaken) << row.material;
  }
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

TEST(MaterialChunks, HaveTheVerticesOfTheirType) {
  StandardChunkHint hint;
  hint.axis = true;
  const Ref<GeometryChunk> plain = ChunkOf("m.onetex", hint), bump = ChunkOf("m.tbumptex", hint),
                           gloss = ChunkOf("m.tbumpgloss"), effects = ChunkOf("m.tmpfx", hint);
  EXPECT_TRUE(plain->GetStream(StreamId::kAxis));
  EXPECT_EQ(Items(*bump), "1:12 4:12 15:8 16:12 ");
  EXPECT_EQ(bump->Vertices().Number(), 0x62u);
  EXPECT_EQ(Items(*gloss), Items(*bump));
  EXPECT_EQ(Items(*effects), "1:12 2:4 15:8 16:8 ");
  EXPECT_EQ(effects->Vertices().Number(), 0x62u);
}

TEST(MaterialChunks, OfRustBeginNew) {
  const PString age(MorvexGlossRustMaterial::kRustAge);
  EXPECT_EQ(ChunkOf("m.tglossrust")->GetProperty(age), 0.0F);
  EXPECT_EQ(ChunkOf("m.onetex")->GetProperty(age), std::nullopt);
}

TEST(MaterialChunks, OfBumpsAreNotLitBySoftwareButSkinned) {
  StandardChunkHint hint;
  hint.softwareLighting = hint.skinned = true;
  const StandardChunkHint own = ChunkOf("m.tbumptex", hint)->Hint();
  EXPECT_FALSE(own.softwareLighting);
  EXPECT_TRUE(own.softwareSkinned);
  hint.softwareLighting = false;
  EXPECT_FALSE(ChunkOf("m.tbumptex", hint)->Hint().softwareSkinned);
}

}  // namespace
}  // namespace Nox
