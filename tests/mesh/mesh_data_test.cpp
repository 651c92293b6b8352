#include "mesh/mesh_data.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "engine/file.h"
#include "engine/material_manager.h"
#include "engine/resource_database.h"
#include "mesh/mesh_resource.h"
#include "mesh/plugins.h"
#include "tests/mesh/mesh_builder.h"
#include "tests/mesh/recording_reporter.h"
#include "tests/scratch_folder.h"

namespace morvex {
namespace {

using namespace mesh_builder;

class MeshDataTest : public testing::Test {
 protected:
  MeshDataTest() {
    NoxGetPlugins();
    Nox::File::Subst(kPack, folder_ / "", true);
  }
  ~MeshDataTest() override { Nox::File::Subst(kPack, {}, true); }

  void Write(const std::string& name, const std::string& content) {
    std::filesystem::create_directories(std::filesystem::path(folder_ / name).parent_path());
    std::ofstream(folder_ / name, std::ios::binary) << content;
  }
  // What is said of a load, without the word that it went well.
  std::string Load(MeshData& mesh, const std::string& name) {
    const bool isLoaded = mesh.Load(name, &reporter_);
    std::string said = reporter_.Take();
    const size_t trace = said.find("trace loaded\n");
    EXPECT_EQ(trace != said.npos, isLoaded) << said;
    if (isLoaded) said.erase(trace, 13);
    return said;
  }

  static inline const Nox::PString kPack{"meshes"};
  ScratchFolder folder_;
  Nox::ResourceDatabase database_{kPack};
  Nox::MaterialManager materials_;
  RecordingReporter reporter_;
};

TEST_F(MeshDataTest, TellsWhatAMeshHolds) {
  const std::vector<Group> all = {{0, {0, 1, 2}}};
  Write("a/loco.im",
        Im({Part(Material{}.Bytes(), Geometry{}.Im()), Part(Material{}.Bytes(), Geometry{}.Im())},
           Influences({{"arm", "root", all}, {"root", ""}, {"hand", "arm"}, {"leg", "nobody"}}) +
               Attachments({"x/y/a.front", "a.back", "a/"})));
  MeshData mesh(database_, &materials_);
  EXPECT_EQ(mesh.GetDefinition(), nullptr);
  EXPECT_EQ(mesh.GetFaceCount(), 0u);
  EXPECT_EQ(Load(mesh, "a/loco.im"), "");

  EXPECT_EQ(mesh.GetFaceCount(), 2u);
  EXPECT_EQ(mesh.GetName(), "some name");
  EXPECT_EQ(mesh.GetPosition(), mesh.GetDefinition()->position);
  ASSERT_EQ(mesh.GetAttachmentCount(), 3u);
  EXPECT_EQ(mesh.GetAttachments()[0].name, "a.front");
  EXPECT_TRUE(mesh.HasAttachment("a.front") && mesh.HasAttachment("a.back") && mesh.HasAttachment(""));
  EXPECT_FALSE(mesh.HasAttachment("x/y/a.front") || mesh.HasAttachment("A.front"));
  std::string bones;
  for (const MeshBone& bone : mesh.GetBones())
    bones += bone.name.Text() + " ";
  EXPECT_EQ(bones, "root arm hand leg ") << "each behind its parent";
  EXPECT_EQ(mesh.GetBones()[1].position.x, 3) << "of the bone itself";
}

TEST_F(MeshDataTest, LevelsOfDetailStandForTheLastOneByThreshold) {
  Geometry two;
  two.faces = 2;
  two.indices = 6;
  Write("a.lm", Lm({LmInfo(2), MaterialTable({Material{}}), Level(0.1F, {LevelPart(0, Geometry{}.Lm())}),
                    Level(1, {LevelPart(0, two.Lm())})}));
  Write("near/b.im", Im({Part(Material{}.Bytes(), two.Im())}));
  Write("b.lm.txt", "version 1.0\nmesh 1.0 { name \"Near/B.im\" }\n");
  for (const char* name : {"a.lm", "b.lm.txt"}) {
    LODMeshData mesh(database_, &materials_);
    EXPECT_EQ(Load(mesh, name), "") << name;
    EXPECT_EQ(mesh.GetFaceCount(), 2u) << name;
    ASSERT_NE(mesh.GetDefinition(), nullptr) << name;
    EXPECT_EQ(mesh.GetDefinition()->thresholds.back(), 1) << name;
  }
}

TEST_F(MeshDataTest, TellsOfWhatDoesNotLoad) {
  Write("text.im", "A shed.");
  Write("text.tga", "");
  Write("rootless.im", Im({Part(Material{}.Bytes(), Geometry{}.Im())}, Influences({{"arm", "nobody"}})));
  Write("far.lm.txt", "version 1.0\nmesh 1.0 { name \"gone.im\" }\n");
  Material velvet;
  velvet.name = "hull.m.velvet";
  Write("velvet.im", Im({Part(velvet.Bytes(), Geometry{}.Im())}));
  const std::pair<const char*, const char*> rows[] = {
      {"gone.im", "error not found gone.im\n"},        {"gone.im;text.im", "error not found gone.im\n"},
      {"text.tga", "error not found text.tga\n"},      {"../text.im", "error not found ../text.im\n"},
      {"text.im", "error not loaded text.im\n"},       {"rootless.im", "error not loaded rootless.im\n"},
      {"far.lm.txt", "error not loaded far.lm.txt\n"}, {"velvet.im", "error not loaded velvet.im\n"},
  };
  for (const auto& [name, said] : rows) {
    MeshData mesh(database_, &materials_);
    EXPECT_EQ(Load(mesh, name), said);
    EXPECT_EQ(mesh.GetDefinition(), nullptr) << name;
    EXPECT_FALSE(mesh.Load(name, nullptr)) << name;
  }
  reporter_.hasAlias = true;
  MeshData mesh(database_, &materials_);
  EXPECT_EQ(Load(mesh, "gone.im"), "") << "the other asset may have it";
  EXPECT_EQ(Load(mesh, "text.im"), "error not loaded text.im\n");
  EXPECT_FALSE(mesh.AddAnimation("a.kin"));
  EXPECT_EQ(reporter_.Take(), "error nothing to animate a.kin\n");
}

TEST_F(MeshDataTest, WithoutAManagerAnyMaterialWillDo) {
  Material velvet;
  velvet.name = "hull.m.velvet";
  Write("velvet.im", Im({Part(velvet.Bytes(), Geometry{}.Im())}));
  MeshData mesh(database_, nullptr);
  EXPECT_EQ(Load(mesh, "velvet.im"), "");
  EXPECT_EQ(mesh.GetDefinition()->MainLevel().parts[0].material->GetType(), "velvet");
}

TEST_F(MeshDataTest, ResourcesTellWhichMaterialsAreMissing) {
  Material velvet;
  velvet.name = "hull.m.velvet";
  Write("a.im", Im({Part(velvet.Bytes(), Geometry{}.Im())}));
  const Nox::Ref<Nox::Resource> found = database_.Get("a.im");
  auto& resource = dynamic_cast<MorvexGeometryBaseResource&>(*found);
  resource.SetMaterials(&materials_);
  resource.AllowMaterialFallback(true);
  EXPECT_EQ(resource.Lock(), RES_UNKNOWN) << "whatever the reason";
  EXPECT_EQ(resource.MissingMaterials(), std::vector<std::string>{"meshes*a.im*hull.m.velvet"});
}

TEST_F(MeshDataTest, AnimationsMustFit) {
  Write("a.im", Im({Part(Material{}.Bytes(), Geometry{}.Im())}, Influences({{"root", ""}, {"arm", "root"}})));
  Write("bare.im", SmallIm());
  Write("swing.kin", Kin({"other", "arm"}, 2));
  Write("still.kin", Kin({}));
  Write("other.kin", Kin({"other"}));
  Write("text.kin", "JIRF");
  MeshData mesh(database_, &materials_), bare(database_, &materials_);
  ASSERT_EQ(Load(mesh, "a.im"), "");
  ASSERT_EQ(Load(bare, "bare.im"), "");
  struct Row {
    MeshData& mesh;
    const char* name;
    const char* said;
  };
  const Row rows[] = {
      {mesh, "swing.kin", "trace animation loaded\n"},
      {mesh, "still.kin", "trace animation loaded\n"},
      {mesh, "other.kin", "error animation unfit other.kin\n"},
      {mesh, "text.kin", "error animation unread text.kin\n"},
      {mesh, "gone.kin", "error no animation gone.kin\n"},
      {bare, "swing.kin", "error animation unfit swing.kin\n"},
      {bare, "still.kin", "trace animation loaded\n"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.mesh.AddAnimation(row.name), std::string(row.said).starts_with("trace")) << row.name;
    EXPECT_EQ(reporter_.Take(), row.said);
  }
  ASSERT_EQ(mesh.GetAnimations().size(), 2u);
  EXPECT_EQ(mesh.GetAnimations()[0].name, "swing.kin");
  EXPECT_EQ(mesh.GetAnimations()[0].seconds, 2);
}

// The textures of one material, the files beside the mesh, and what is said.
TEST_F(MeshDataTest, LooksForTextures) {
  struct Row {
    const char* material;
    Texture texture;
    std::vector<std::pair<const char*, const char*>> files;
    const char* said;
  };
  const Row rows[] = {
      {"m.onetex", {0, "C:\\art/Wall.TGA"}, {{"wall.tga", ""}}, ""},
      {"m.onetex", {0, "wall.tga"}, {}, "error texture missing a/wall.tga\n"},
      {"m.onetex", {9, "wall.tga"}, {{"wall.tga", ""}}, "warning texture refused a/wall.tga m.im\n"},
      {"m.tbumptex",
       {8, "wall.tga"},
       {},
       "warning texture refused a/wall.tga m.im\nerror texture missing a/wall.tga\n"},
      {"m.onetex", {0, "w.texture"}, {{"w.texture.txt", "Primary=Tex.TGA\r\n"}, {"tex.tga", ""}}, ""},
      {"m.onetex", {0, "w.texture.txt"}, {{"w.texture.txt", "Primary tex.tga"}, {"tex.tga", ""}}, ""},
      {"m.onetex",
       {0, "w.texture"},
       {{"w.texture.txt", "Primary=Tex.TGA"}},
       "error texture missing a/tex.tga\n"},
      {"m.onetex",
       {0, "w.texture.txt"},
       {{"w.texture.txt", "Alpha=b.tga\nPrimary=c.tga\nPrimary=d.tga"}, {"d.tga", ""}},
       "error texture missing a/c.tga\n"},
      {"m.onetex", {0, "w.texture"}, {{"w.texture.txt", "primary=tex.tga\nAlpha=gone.tga"}}, ""},
      {"m.onetex", {0, "w.texture"}, {{"w.texture", ""}}, ""},
      {"m.onetex", {0, "w.texture"}, {}, "error texture missing a/w.texture\n"},
      {"m.onetex", {0, "w.texture.txt"}, {}, "error texture missing a/w.texture.txt\n"},
  };
  for (const Row& row : rows) {
    std::filesystem::remove_all(folder_ / "a");
    database_.DumpUnusedResourcesFromCache();
    Material material;
    material.name = row.material;
    material.textures = {row.texture};
    Write("a/m.im", Im({Part(material.Bytes(), Geometry{}.Im())}));
    for (const auto& [name, content] : row.files)
      Write(std::string("a/") + name, content);
    MeshData mesh(database_, &materials_);
    EXPECT_EQ(Load(mesh, "a/m.im"), row.said) << row.material << " " << row.texture.name;
  }
}

TEST_F(MeshDataTest, LooksForTheTexturesOfEveryLevelOnce) {
  Material far, near;
  far.textures = {{0, "far.tga"}, {1, "both.tga"}};
  near.textures = {{0, "both.tga"}, {1, "both.tga"}};
  Write("a.lm", Lm({LmInfo(2), MaterialTable({far, near}), Level(0.1F, {LevelPart(0, Geometry{}.Lm())}),
                    Level(1, {LevelPart(1, Geometry{}.Lm())})}));
  LODMeshData mesh(database_, &materials_);
  EXPECT_EQ(Load(mesh, "a.lm"), "error texture missing far.tga\nerror texture missing both.tga\n");
}

}  // namespace
}  // namespace morvex
