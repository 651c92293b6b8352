// The meshes that the tags of an asset name: loaded while it is judged, and gone afterwards.

#include <sstream>

#include "engine/log.h"
#include "engine/material_plugin.h"
#include "engine/vertex_type.h"
#include "mesh/mesh_data.h"
#include "tests/engine/zip_maker.h"
#include "tests/qel/qel_fixture.h"
#include "validation/qel/finding.h"

namespace QELLib {
namespace {

using mesh_builder::Geometry;
using mesh_builder::Material;

// A mesh of one part with this material and these textures.
std::string MeshOf(const std::string& material, const std::vector<mesh_builder::Texture>& textures = {}) {
  const Material own = {.name = material, .textures = textures};
  return mesh_builder::Im({mesh_builder::Part(own.Bytes(), Geometry{}.Im())});
}

class AssetMeshesTest : public QelTest {
 protected:
  AssetMeshesTest() {
    Define(R"(
thing { top-level "1"  subpossibilities {
  kind { kind "value" type "string" }
  mesh { kind "value" type "filepath" datatype "meshes" }
  other { kind "value" type "filepath" datatype "meshes" }
  alias { kind "value" type "kuid" }
  inner { kind "container" container-type0 "part" }
)" + kCommonTags +
               R"(
} }
)",
           R"(part { subpossibilities { mesh { kind "value" type "filepath" datatype "meshes" } } })");
  }

  std::string JudgeMesh(const std::string& file, const std::string& more = "") {
    return Judge("kind \"thing\"\nmesh \"" + file + "\"\n" + more);
  }
  void Put(const std::string& path, const std::string& content) const {
    Write("local/asset/" + path, content);
  }
};

TEST_F(AssetMeshesTest, AreJudged) {
  Put("good.im", MeshOf("hull.m.onetex", {{0, "wall.tga"}}));
  Put("art/deep.lm", mesh_builder::SmallLm());
  Put("wall.tga", "");
  Put("velvet.im", MeshOf("hull.m.velvet"));
  Put("bare.im", MeshOf("hull.m.onetex", {{0, "gone.tga"}}));
  Put("bump.im", MeshOf("hull.m.tbumptex", {{8, "gone.tga"}}));
  Put("slot.im", MeshOf("hull.m.onetex", {{9, "wall.tga"}}));
  Put("text.im", "A shed.");
  const char* const rows[][2] = {
      {"good.im", "good"},
      {"GOOD.IM", "good"},
      {"art\\\\deep.lm", "good"},
      {"art/../good.im", "good"},
      {"gone.im", "bad\nerror 131 gone.im"},
      {"../../config.im", "bad\nerror 131 ../config.im"},
      {"text.im", "bad\nerror 132 text.im"},
      {"velvet.im", "bad\nerror 132 velvet.im"},
      {"bare.im", "bad\nerror 133 gone.tga"},
      {"bump.im", "bad\nwarning 144 gone.tga bump.im\nerror 133 gone.tga"},
      {"slot.im", "good\nwarning 144 wall.tga slot.im"},
      {"good", "good"},
  };
  for (const auto& [file, verdict] : rows)
    EXPECT_EQ(JudgeMesh(file), verdict) << file;
}

TEST_F(AssetMeshesTest, FindingsAreOfTheContainerWhoseTagAsked) {
  Put("bare.im", MeshOf("hull.m.onetex", {{0, "gone.tga"}}));
  Put("config.txt",
      "morvex-build 2.7\nkind \"thing\"\nmesh \"bare.im\"\nother \"bare.im\"\ninner { mesh \"bare.im\" }\n");
  std::vector<Finding> findings;
  EXPECT_FALSE(InspectAsset(root_ / "local/asset", "", findings));
  std::string said;
  for (const Finding& finding : findings)
    said += finding.container + ":" + finding.tag + " " + finding.text.substr(0, 12) + "\n";
  EXPECT_EQ(said, "thing: 133 gone.tga\ninner: 133 gone.tga\n") << "once for each container";
}

TEST_F(AssetMeshesTest, AreGoneAfterwards) {
  Put("a.im", MeshOf("hull.m.onetex"));
  EXPECT_EQ(JudgeMesh("a.im"), "good");
  EXPECT_EQ(Manager().CurrentMesh(), nullptr);
  Put("a.im", "A shed.");
  EXPECT_EQ(JudgeMesh("a.im"), "bad\nerror 132 a.im") << "nothing is kept of the mesh of old";
  EXPECT_FALSE(Manager().loadFailed);
}

TEST_F(AssetMeshesTest, OfAnAliasMayBeElsewhere) {
  EXPECT_EQ(JudgeMesh("gone.im", "alias <kuid:1:2>"), "good\nwarning 119");
  Put("text.im", "A shed.");
  EXPECT_EQ(JudgeMesh("text.im", "alias <kuid:1:2>"), "bad\nwarning 119\nerror 132 text.im");
}

TEST_F(AssetMeshesTest, MaterialsAreNotAskedForWhereNothingIsDrawn) {
  Put("velvet.im", MeshOf("hull.m.velvet"));
  Nox::RenderKernel blind;
  blind.Init(Nox::Options("-NullRender"), &NoxGetPlugins);
  Manager().SetContext(&blind);
  EXPECT_EQ(JudgeMesh("velvet.im"), "good");
  Manager().SetContext(nullptr);
  EXPECT_EQ(JudgeMesh("velvet.im"), "good");
}

TEST_F(AssetMeshesTest, AreFoundInPacks) {
  std::filesystem::create_directories(root_ / "world");
  ASSERT_TRUE(PutZip(root_ / "world/pack.ja",
                     {{"x/asset/config.txt", "morvex-build 2.7\nkind \"thing\"\nmesh \"in/a.lm.txt\"\n"},
                      {"x/asset/in/a.lm.txt", "version 1.0\nmesh 1.0 { name \"A.im\" }\n"},
                      {"x/asset/in/a.im", MeshOf("hull.m.onetex", {{0, "wall.tga"}})},
                      {"x/asset/in/wall.tga", ""}}));
  morvex::ResultsLog log;
  EXPECT_TRUE(ValidateAsset("x/asset", "world/pack", log));
}

TEST_F(AssetMeshesTest, MaterialsThatCannotBeMadeAreLoggedAtTheStart) {
  struct Broken : Nox::MaterialPlugin {
    explicit Broken(std::string_view type) : MaterialPlugin(type, "") {}
    Nox::Ref<Nox::Material> CreateInstance() const override { return nullptr; }
  };
  const Broken plugins[] = {Broken("notex"), Broken("gloss")};
  setenv("MORVEX_LOG", (root_ / "log").c_str(), 1);
  Nox::Log::Init(Nox::Options());
  Manager().RegisterMorvexBumpVertexType();
  Nox::Log::Close();
  unsetenv("MORVEX_LOG");
  EXPECT_EQ(Nox::VertexType::RegisteredName(0x62), "PNTA_Morvex");
  std::stringstream log;
  log << std::ifstream(root_ / "log").rdbuf();
  const std::string lead = " MorvexClassic(2): DataManager::RegisterMorvexBumpVertexType> Unable to load ";
  EXPECT_EQ(log.str(), lead + "'m.notex'\n" + lead + "'m.glose'\n");
}

}  // namespace
}  // namespace QELLib
