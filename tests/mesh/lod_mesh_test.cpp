#include <gtest/gtest.h>

#include <tuple>

#include "tests/mesh/loaded_mesh.h"
#include "tests/mesh/mesh_builder.h"

namespace morvex {
namespace {

using namespace mesh_builder;

const std::string kMaterials = MaterialTable({Material{}});
const std::string kPart = LevelPart(0, Geometry{}.Lm());

// Of levels with these thresholds, and names for some of them.
std::string Levels(const std::vector<float>& thresholds, const std::vector<NamedLevel>& names = {}) {
  std::vector<std::string> chunks = {LmInfo(static_cast<std::uint32_t>(thresholds.size()), names),
                                     kMaterials};
  for (const float threshold : thresholds)
    chunks.push_back(Level(threshold, {kPart}));
  return Lm(chunks);
}

std::string WithBones(const std::string& bones, const std::string& bindings = {}) {
  return Lm({LmInfo(1), kMaterials, bones, Level(1, {kPart}, bindings)});
}

std::string WithGeometry(const Geometry& geometry) {
  return Lm({LmInfo(1), kMaterials, Level(1, {LevelPart(0, geometry.Lm())})});
}

std::string WithLevel(const std::string& level) {
  return Lm({LmInfo(1), kMaterials, level});
}

// A chunk whose size says one byte more than its fields take.
std::string OneMore(std::string chunk) {
  chunk[4] = static_cast<char>(chunk[4] + 1);
  return chunk;
}

TEST(LodMesh, AnswersForItsChunks) {
  const std::string level = Level(1, {kPart});
  const std::string bones = BoneTable("BONT", {{"root", ""}});
  const std::tuple<const char*, std::string, MeshResult> kCases[] = {
      {"small", SmallLm(), RES_SUCCESS},
      {"full", FullLm(), RES_SUCCESS},
      {"nothing", "", RES_FILE_FORMAT_ERROR},
      {"another kind", Wrapper("IDXM", SmallLm().substr(12)), RES_FILE_FORMAT_ERROR},
      {"a byte left over", Wrapper("LODM", SmallLm().substr(12) + "x"), RES_FILE_FORMAT_ERROR},
      {"an old material", Lm({LmInfo(1), MaterialTable({{.version = 102}}), level}), RES_FILE_VERSION_ERROR},
      {"an unknown material", Lm({LmInfo(1), MaterialTable({{.name = "m.odd"}}), level}),
       RES_UNKNOWN_MATERIAL},
      {"more materials", Lm({LmInfo(1), OneMore(kMaterials), level}), RES_FILE_FORMAT_ERROR},
      {"no materials", Lm({LmInfo(1), level}), RES_FILE_FORMAT_ERROR},
      {"a material that isn't there", WithLevel(Level(1, {LevelPart(1, Geometry{}.Lm())})),
       RES_FILE_FORMAT_ERROR},
      {"bones", WithBones(bones), RES_SUCCESS},
      {"more bones", WithBones(OneMore(bones)), RES_FILE_FORMAT_ERROR},
      {"other bones", WithBones(Chunk("BONT", 101, U32(0))), RES_FILE_VERSION_ERROR},
      {"bones of both kinds", WithBones(bones + BoneTable("RBOT", {{"r", ""}})), RES_SUCCESS},
      {"as many bones as can be said", WithBones(Chunk("RBOT", 100, U32(~0U))), RES_FILE_FORMAT_ERROR},
      {"a bare bone without a root", WithBones(BoneTable("RBOT", {{"arm", "root"}})), RES_FILE_FORMAT_ERROR},
      {"bindings", WithBones(bones, Bindings({{"root", "", {{9, {1}}}}})), RES_SUCCESS},
      {"other bindings", WithBones(bones, Chunk("LODB", 101, U32(0))), RES_FILE_VERSION_ERROR},
      {"too few bindings", WithBones(bones, Bindings({})), RES_FILE_FORMAT_ERROR},
      {"an empty level", WithLevel(Level(1, {})), RES_SUCCESS},
      {"another level", WithLevel(Chunk("MESH", 101, level.substr(12))), RES_FILE_VERSION_ERROR},
      {"more in the level", WithLevel(OneMore(level)), RES_FILE_FORMAT_ERROR},
      {"more in the part", WithLevel(Level(1, {OneMore(kPart)})), RES_FILE_FORMAT_ERROR},
      {"neighbours", WithLevel(Level(1, {LevelPart(0, Geometry{}.Lm() + Neighbours(1))})), RES_SUCCESS},
      {"something in their place", WithLevel(Level(1, {LevelPart(0, Geometry{}.Lm() + Attachments({}))})),
       RES_FILE_FORMAT_ERROR},
      {"geometry 100", WithGeometry({.version = 100}), RES_FILE_VERSION_ERROR},
      {"geometry 101", WithGeometry({.version = 101}), RES_SUCCESS},
      {"surplus geometry", WithGeometry({.rest = "x"}), RES_FILE_FORMAT_ERROR},
      {"a name of level 9", Levels({1}, {{9, "nine"}}), RES_SUCCESS},
      {"as many levels as can be said", Lm({LmInfo(~0U), kMaterials, level}), RES_FILE_FORMAT_ERROR},
  };
  for (const auto& [what, file, result] : kCases)
    EXPECT_EQ(MeshResultName(LoadLm(file).result), MeshResultName(result)) << what;
}

TEST(LodMesh, WantsThresholdsInOrder) {
  const std::tuple<std::vector<float>, std::vector<NamedLevel>, bool> kCases[] = {
      {{0.5}, {}, true},
      {{}, {}, false},
      {{1, 1, 2}, {}, true},
      {{1, 0.5}, {}, false},
      {{-2, -1.5}, {}, true},
      {{1, -1}, {}, false},
      {{1, -1}, {{0, "near"}}, false},
      {{1, -1}, {{1, "door"}}, true},
      {{-1}, {{0, "door"}}, false},
      {{-1, 1}, {{0, "door"}}, false},
      {{1, -1, 2}, {{1, "door"}}, false},
  };
  for (const auto& [thresholds, names, isGood] : kCases) {
    const LoadedLm load = LoadLm(Levels(thresholds, names));
    EXPECT_EQ(load.result, isGood ? RES_SUCCESS : RES_FILE_FORMAT_ERROR)
        << testing::PrintToString(thresholds);
  }
  const LoadedLm load = LoadLm(Levels({1, 2, -1}, {{2, "door"}}));
  EXPECT_EQ(load.mesh->thresholds, (std::vector<float>{1, 2}));
  EXPECT_EQ(&load.mesh->MainLevel(), load.mesh->levels[1].get());
}

TEST(LodMesh, ReadsWhatItHolds) {
  const LoadedLm load = LoadLm(FullLm());
  ASSERT_EQ(load.result, RES_SUCCESS);
  const MorvexIndexedMeshLODDefinition& mesh = *load.mesh;
  EXPECT_EQ(mesh.name, "body.lm");
  EXPECT_EQ(mesh.calcPoint, CalcPoint::kFar);
  EXPECT_EQ(mesh.attachmentCutOff, 14);
  ASSERT_EQ(mesh.namedMeshes.size(), 2U);
  EXPECT_EQ(mesh.namedMeshes[0].name, "door");
  EXPECT_EQ(mesh.namedMeshes[0].level, 2);
  EXPECT_TRUE(mesh.namedMeshes[0].animated);
  EXPECT_EQ(mesh.cullAttachments, std::vector{Nox::PString("a.front:Cull")});
  EXPECT_EQ(BoneTreeText(mesh.skeleton), "root(arm)");
  EXPECT_EQ(mesh.levels[2]->parts[0].material, mesh.levels[1]->parts[1].material);
  EXPECT_EQ(mesh.MainLevel().VertexTotal(), 8U);
  EXPECT_EQ(mesh.MainLevel().bindings[1][0].vertices[0].vertex, 4U);
  EXPECT_EQ(mesh.box, (MeshBox{{4, 8, 12}, {0, 0, 0}}));  // of the nearest level, not of the named one
}

TEST(LodMesh, DiffersFromTheIndexedMesh) {
  const LoadedLm load = LoadLm(Lm({LmInfo(1), MaterialTable({{.power = 5}}),
                                   Level(1, {LevelPart(0, Geometry{.version = 103, .textureSets = 2}.Lm()),
                                             LevelPart(0, Geometry{.faces = 0}.Lm())})}));
  ASSERT_EQ(load.result, RES_SUCCESS);
  ASSERT_EQ(load.mesh->MainLevel().parts.size(), 1U);
  const MeshPart& part = load.mesh->MainLevel().parts[0];
  EXPECT_EQ(part.name, "part");
  EXPECT_EQ(part.chunk->TextureSetCount(), 1U);
  EXPECT_EQ(part.material->GetDisplayMaterialProperties().power, 5);
}

}  // namespace
}  // namespace morvex
