#include "mesh/mesh_data.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>
#include <utility>

#include "engine/file.h"
#include "engine/material_manager.h"
#include "engine/resource_database.h"
#include "mesh/mesh_reporter.h"
#include "mesh/mesh_resource.h"
#include "mesh/plugins.h"
#include "tests/mesh/mesh_builder.h"
#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace morvex {
namespace {

using namespace mesh_builder;

// Keeps what it is told, a line for each finding: its severity, its number, its arguments.
class RecordingReporter final : public MeshReporter {
 public:
  void Error(MeshFinding finding, std::string_view argument) override { Add("error", finding, argument); }
  void Warning(MeshFinding finding, std::string_view first, std::string_view second) override {
    Add("warning", finding, std::string(first) + " " + std::string(second));
  }
  void Trace(MeshFinding finding) override { Add("trace", finding, ""); }
  bool AliasHidesMissingMesh() const override { return hasAlias; }

  // Also forgets it.
  std::string Take() { return std::exchange(said_, {}); }

  bool hasAlias = false;

 private:
  static const char* NameOf(MeshFinding finding) {
    constexpr const char* kNames[] = {
        "not found",        "not loaded",      "loaded",           "texture missing", "texture refused",
        "animation loaded", "animation unfit", "animation unread", "no animation",    "nothing to animate"};
    return kNames[static_cast<int>(finding)];
  }
  void Add(const char* severity, MeshFinding finding, std::string_view arguments) {
    said_ += std::string(severity) + " " + NameOf(finding);
    if (!arguments.empty()) said_ += " " + std::string(arguments);
    said_ += "\n";
  }

  std::string said_;
};

class MeshDataTest : public testing::Test {
 protected:
  MeshDataTest() {
    NoxGetPlugins();
    Nox::File::Subst(kPack, folder_ / "", true);
  }
  ~MeshDataTest() override { Nox::File::Subst(kPack, {}, true); }

  void Write(const std::string& name, const std::string& content) { PutFile(folder_ / name, content); }
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
  const Geometry two = {.faces = 2, .indices = 6};
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
  const Material velvet = {.name = "hull.m.velvet"};
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

TEST_F(MeshDataTest, ResourcesTellWhichMaterialsAreMissing) {
  const Material velvet = {.name = "hull.m.velvet"};
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
  const std::tuple<MeshData&, const char*, const char*> rows[] = {
      {mesh, "swing.kin", "trace animation loaded\n"},
      {mesh, "still.kin", "trace animation loaded\n"},
      {mesh, "other.kin", "error animation unfit other.kin\n"},
      {mesh, "text.kin", "error animation unread text.kin\n"},
      {mesh, "gone.kin", "error no animation gone.kin\n"},
      {bare, "swing.kin", "error animation unfit swing.kin\n"},
      {bare, "still.kin", "trace animation loaded\n"},
  };
  for (const auto& [loaded, name, said] : rows) {
    EXPECT_EQ(loaded.AddAnimation(name), std::string(said).starts_with("trace")) << name;
    EXPECT_EQ(reporter_.Take(), said);
  }
  ASSERT_EQ(mesh.GetAnimations().size(), 2u);
  EXPECT_EQ(mesh.GetAnimations()[0].name, "swing.kin");
  EXPECT_EQ(mesh.GetAnimations()[0].seconds, 2);
}

// The textures of one material, the files beside the mesh, and what is said.
TEST_F(MeshDataTest, LooksForTextures) {
  const std::tuple<const char*, Texture, std::vector<std::pair<const char*, const char*>>, const char*>
      rows[] = {
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
  for (const auto& [type, texture, files, said] : rows) {
    std::filesystem::remove_all(folder_ / "a");
    database_.DumpUnusedResourcesFromCache();
    const Material material = {.name = type, .textures = {texture}};
    Write("a/m.im", Im({Part(material.Bytes(), Geometry{}.Im())}));
    for (const auto& [name, content] : files)
      Write(std::string("a/") + name, content);
    MeshData mesh(database_, &materials_);
    EXPECT_EQ(Load(mesh, "a/m.im"), said) << type << " " << texture.name;
  }
}

TEST_F(MeshDataTest, LooksForTheTexturesOfEveryLevelOnce) {
  const Material far = {.textures = {{0, "far.tga"}, {1, "both.tga"}}};
  const Material near = {.textures = {{0, "both.tga"}, {1, "both.tga"}}};
  Write("a.lm", Lm({LmInfo(2), MaterialTable({far, near}), Level(0.1F, {LevelPart(0, Geometry{}.Lm())}),
                    Level(1, {LevelPart(1, Geometry{}.Lm())})}));
  LODMeshData mesh(database_, &materials_);
  EXPECT_EQ(Load(mesh, "a.lm"), "error texture missing far.tga\nerror texture missing both.tga\n");
}

}  // namespace
}  // namespace morvex
