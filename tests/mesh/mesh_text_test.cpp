#include <gtest/gtest.h>

#include <tuple>

#include "tests/mesh/loaded_mesh.h"
#include "tests/mesh/mesh_builder.h"

namespace morvex {
namespace {

const std::string kChunk =
    "chunk hull.m.onetex { vertex 0 0 0 0 0 1 0 1; vertex 1 0 0 0 0 1 1 1; vertex 0 2 0 0 0 1 0 0; face 0 1 "
    "2 }\n";

std::string Text(const std::string& body) {
  return "version 1.0\n" + body;
}

TEST(IndexedMeshText, ReadsAMesh) {
  MeshLoadContext context = TestContext();
  context.display.skinsMeshes = true;
  const LoadedIm load = LoadImText(Text(R"(
    Mesh { DynamicVertex true; HardwareAnimationFloatPrecision true }
    position 1 2 3;  orientation 0 0 1 0; maxInfluencesPerVertex 2;  maxMatricesPerChunk 2
    Material hull {                       # for all of its types
      flag true; opacity 0.5; power 3; colour2 .1 .2 .3; colour4 2 2 2
      property key "a value"
      texture 0 work\hull.texture 0.75
      texture 8 bump.tga
    }
    chunk other.m.notex { vertex 0 0 0 0 0 1 }   // no face: not kept
    chunk hull.m.onetex {
      name "the hull"; value 7; weights 2
      vertex 0 0 0  0 0 1  0 1  5 6
      vertex 1 0 0  0 1 0  1 1  7 8
      vertex 0 2 0  1 0 0  0 0  9 9
      axis 1 2 3
      axis 4 5 6
      axis 7 8 9
      face 0 1 2
      face 2 1 0
      faceNormal 0 0 1
    }
    attachment "a.front" { position 0 0 5; rotation 0 1 0 1 0 0 0 0 1 }
    bone root { group 0 { v 0 1 0 0 0; v 1 .5 1 2 3 } group 0 {} }
    bone arm { parent root; position 1 1 1; group 0 { v 1 .5 0 0 0 } }
  )"),
                                   context);
  ASSERT_EQ(load.result, RES_SUCCESS);
  const MorvexIndexedMeshDefinition& mesh = *load.mesh;
  EXPECT_EQ(mesh.orientation, (Nox::Quaternion{0, 0, 1, 0}));
  EXPECT_EQ(mesh.attachments[0].rotation.m[1], 1);
  EXPECT_EQ(BoneTreeText(mesh.skeleton), "root(arm)");
  EXPECT_EQ(mesh.box, (MeshBox{{1, 2, 0}, {0, 0, 0}}));
  const MeshLevel& level = mesh.MainLevel();
  ASSERT_EQ(level.parts.size(), 1U);
  EXPECT_EQ(level.bindings[0].size(), 1U);
  const MeshPart& part = level.parts[0];
  EXPECT_EQ(part.name, "the hull");
  const Nox::GeometryChunk& chunk = *part.chunk;
  EXPECT_EQ(chunk.Size().faces, 2U);
  EXPECT_EQ(chunk.Hint().vertexMode, 1);
  EXPECT_EQ(chunk.Hint().indexMode, 2);
  EXPECT_EQ(FloatsAt(chunk, Nox::TextureStream(1), 1), (std::vector<float>{7, 8}));
  EXPECT_EQ(FloatsAt(chunk, Nox::StreamId::kNormal, 2), (std::vector<float>{1, 0, 0}));
  EXPECT_EQ(FloatsAt(chunk, Nox::StreamId::kAxis, 1), (std::vector<float>{4, 5, 6}));
  EXPECT_EQ(FloatsAt(chunk, Nox::WeightStream(2), 1), (std::vector<float>{.5, .5}));

  const Nox::Material& material = *part.material;
  EXPECT_EQ(material.GetRequestName(), "pack*trains/loco/body.im*hull.m.onetex");
  EXPECT_EQ(material.GetDisplayMaterialProperties().power, 3);
  EXPECT_EQ(material.GetDisplayMaterialProperties().colours[3].r, 2);
  EXPECT_EQ(mesh.pendingTextures[0].texture, (Nox::TextureDefinition{0, "trains/loco/hull.texture", .75}));
  EXPECT_EQ(mesh.pendingTextures.size(), 2U);
}

TEST(IndexedMeshText, TakesTheFirstMaterialThatApplies) {
  MeshLoadContext context = TestContext();
  context.display.extensions = {"cubes"};
  const std::string blocks =
      "Material hull.m.onetex { Extension spheres; power 1 }\n"
      "Material hull.m.onetex { Extension cubes; Extension \"\"; power 2 }\n"
      "Material hull { Extension cubes; power 3 }\n"
      "Material hull.m.onetex { power 4 }\n";
  const auto powerOf = [&](const std::string& text, const MeshLoadContext& around) {
    return LoadImText(Text(text), around)
        .mesh->MainLevel()
        .parts[0]
        .material->GetDisplayMaterialProperties()
        .power;
  };
  EXPECT_EQ(powerOf(blocks + kChunk, context), 3);
  EXPECT_EQ(powerOf(blocks + kChunk, TestContext()), 4);
  EXPECT_EQ(powerOf(kChunk, TestContext()), 10);
}

TEST(IndexedMeshText, RefusesWhatIsWrong) {
  const std::tuple<std::string, MeshResult> kCases[] = {
      {Text(kChunk), RES_SUCCESS},
      {Text(kChunk + "unheard of { 1 2 3 }"), RES_SUCCESS},
      {"version 2.0\n" + kChunk, RES_FILE_VERSION_ERROR},
      {Text("chunk a.m.odd { vertex 0 0 0 0 0 1; face 0 0 0 }"), RES_UNKNOWN_MATERIAL},
  };
  for (const auto& [text, result] : kCases)
    EXPECT_EQ(MeshResultName(LoadImText(text).result), MeshResultName(result)) << text;
  for (const std::string& text :
       {kChunk, std::string(), Text(""), Text(kChunk + "{"), Text("position 1 2\n" + kChunk),
        Text("Material hull { texture one a.tga }\n" + kChunk), Text(kChunk + "bone a { group 0 { v 0 1 } }"),
        Text(kChunk + "attachment")})
    EXPECT_EQ(LoadImText(text).result, RES_FILE_FORMAT_ERROR) << text;
  for (const char* chunk :
       {"face 0 0 0", "vertex 0 0 0 0 0; face 0 0 0", "vertex 0 0 0 0 0 1 1; face 0 0 0",
        "vertex 0 0 0 0 0 1; vertex 0 0 0 0 0 1 0 0; face 0 1 0", "vertex 0 0 0 0 0 one; face 0 0 0",
        "vertex 0 0 0 0 0 1; face 0 0 1", "vertex 0 0 0 0 0 1; face 0 0", "vertex 0 0 0 0 0 1; face 0 0 -1",
        "vertex 0 0 0 0 0 1; face 0 0 65536", "vertex 0 0 0 0 0 1; axis 0 0 1; axis 0 0 1; face 0 0 0"})
    EXPECT_EQ(LoadImText(Text("chunk a.m.onetex { " + std::string(chunk) + " }")).result,
              RES_FILE_FORMAT_ERROR)
        << chunk;
}

// Each chunk would take over the whole block.
TEST(IndexedMeshText, BoundsWhatChunksTakeFromOneBlock) {
  std::string text = "Material hull {\n";
  for (int i = 0; i < 10000; ++i)
    text += "property a b\n";
  text += "}\n";
  for (int i = 0; i < 10000; ++i)
    text += kChunk;
  EXPECT_EQ(LoadImText(Text(text)).result, RES_FILE_FORMAT_ERROR);
}

TEST(LodMeshText, ReadsLevelsAndSettings) {
  using namespace mesh_builder;
  const Geometry large = {.vertices = 9};
  FilesInMemory files({{"far.im", SmallIm()},
                       {"near.im", Im({Part(Material{}.Bytes(), large.Im())})},
                       {"door.imtxt", Text(kChunk)}});
  const LoadedLm load = LoadLmText(Text("mesh 0.1 { name far.im }\n"
                                        "calcPoint FAR; renderCutOff 0.25\n"
                                        "mesh 1.0 { name near.im }\n"
                                        "mesh 2 { name near.im }\n"
                                        "mesh Door { name door.imtxt; animated true }\n"
                                        "mesh shed { name far.im }\n"
                                        "mesh gate { name door.imtxt }\n"),
                                   files);
  ASSERT_EQ(load.result, RES_SUCCESS);
  const MorvexIndexedMeshLODDefinition& mesh = *load.mesh;
  EXPECT_EQ(files.asked, (std::vector<std::string>{"far.im", "near.im", "door.imtxt"}));
  EXPECT_EQ(mesh.name, "body.lm.txt");
  EXPECT_EQ(mesh.thresholds, (std::vector<float>{.1F, 1, 2}));
  EXPECT_EQ(mesh.levels.size(), 4U);
  EXPECT_EQ(&mesh.MainLevel(), mesh.levels[1].get());
  EXPECT_EQ(mesh.box.max, (Nox::Vector3{8, 16, 24}));  // of the largest level
  ASSERT_EQ(mesh.namedMeshes.size(), 3U);
  EXPECT_EQ(mesh.namedMeshes[0].name, "door");
  EXPECT_TRUE(mesh.namedMeshes[0].animated);
  const std::uint32_t kLevels[] = {3, 0, 3};
  for (std::size_t i = 0; i < 3; ++i)
    EXPECT_EQ(mesh.namedMeshes[i].level, kLevels[i]) << i;
  EXPECT_EQ(mesh.calcPoint, CalcPoint::kFar);
  EXPECT_EQ(mesh.renderCutOff, 0.25);
  EXPECT_EQ(mesh.multiplier, 1) << "as nothing is said of them";
  EXPECT_EQ(mesh.offset, 0) << "as nothing is said of them";
}

TEST(LodMeshText, AnswersForItsText) {
  using namespace mesh_builder;
  const std::string part = Part(Material{}.Bytes(), Geometry{}.Im());
  const auto fileSet = [&part] {
    return FilesInMemory({{"a.im", SmallIm()},
                          {"b.im", SmallIm()},
                          {"bad.im", "JIRF"},
                          {"old.im", Im({Part(Material{.version = 101}.Bytes(), Geometry{}.Im())})},
                          {"attached.im", Im({part}, Attachments({"a"}))},
                          {"skinned.im", Im({part}, Influences({{"r", ""}}))},
                          {"body.lm", SmallLm()},
                          {"body.lm.txt", Text("mesh 1 { name body.lm.txt }")}});
  };
  const std::tuple<const char*, MeshResult> kCases[] = {
      {"version 1.0\nmesh 1 { name a.im }", RES_SUCCESS},
      {"version 1.009\nmesh 1 { name a.im }", RES_SUCCESS},
      {"version 2.0\nmesh 1 { name a.im }", RES_FILE_VERSION_ERROR},
      {"mesh 1 { name a.im }", RES_FILE_OPEN_ERROR},
      {"version 1.0\nmesh 1 { name a.im", RES_FILE_OPEN_ERROR},
      {"version 1.0\nmesh 1 { name none.im }", RES_FILE_OPEN_ERROR},
      {"version 1.0\nmesh 1 { name old.im }", RES_FILE_VERSION_ERROR},
      {"version 1.0\nmesh 1 { name a.im }\nmesh -1 { name b.im }", RES_SUCCESS},  // the minus makes it a word
  };
  for (const auto& [text, result] : kCases) {
    FilesInMemory files = fileSet();
    EXPECT_EQ(MeshResultName(LoadLmText(text, files).result), MeshResultName(result)) << text;
  }
  for (const char* levels :
       {"", "mesh 1", "mesh { name a.im }", "mesh 1 { name bad.im }",
        "mesh 1 { name a.im }\nmesh 1 { name b.im }", "mesh 1 { name a.im }\nmesh 0.5 { name b.im }",
        "mesh door { name a.im }\nmesh 1 { name a.im }",
        "mesh 1 { name a.im }\nmesh door { name a.im }\nmesh 2 { name b.im }",
        "mesh 1 { name a.im }\nmesh door { name a.im }\nmesh DOOR { name b.im }",
        "mesh 1 { name a.im }\nmesh door", "mesh 1 { name a.im }\nmesh 2 { name attached.im }",
        "mesh 1 { name a.im }\nmesh 2 { name skinned.im }", "mesh 1 { name body.lm }",
        "mesh 1 { name body.lm.txt }"}) {
    FilesInMemory files = fileSet();
    EXPECT_EQ(LoadLmText(Text(levels), files).result, RES_FILE_FORMAT_ERROR) << levels;
  }
}

TEST(LodMeshText, OrdersBindingsByItsOwnBones) {
  using namespace mesh_builder;
  const std::string part = Part(Material{}.Bytes(), Geometry{}.Im());
  FilesInMemory files(
      {{"a.im", Im({part}, Influences({{"root", "", {{0, {0}}}}, {"arm", "root", {{0, {1}}}}}))},
       {"b.im", Im({part}, Influences({{"arm", "root", {{0, {2}}}}, {"odd", "", {{0, {0}}}}}))}});
  const LoadedLm load = LoadLmText(Text("mesh 1 { name a.im }\nmesh 2 { name b.im }"), files);
  ASSERT_EQ(load.result, RES_SUCCESS);
  EXPECT_EQ(load.mesh->levels[0]->bindings[1][0].vertices[0].vertex, 1U);
  EXPECT_TRUE(load.mesh->levels[1]->bindings[0].empty());
  EXPECT_EQ(load.mesh->levels[1]->bindings[1][0].vertices[0].vertex, 2U);
}

}  // namespace
}  // namespace morvex
