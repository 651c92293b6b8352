#include <gtest/gtest.h>

#include "mesh/write_mesh.h"
#include "tests/mesh/loaded_mesh.h"
#include "tests/mesh/mesh_builder.h"

namespace morvex {
namespace {

using namespace mesh_builder;

std::string SavedLm(const MorvexIndexedMeshLODDefinition& mesh) {
  std::vector<std::uint8_t> bytes;
  EXPECT_EQ(SaveLodMesh(mesh, bytes), RES_SUCCESS);
  return AsText(bytes);
}

std::string SavedIm(const MorvexIndexedMeshDefinition& mesh) {
  std::vector<std::uint8_t> bytes;
  EXPECT_EQ(SaveIndexedMesh(mesh, bytes), RES_SUCCESS);
  return AsText(bytes);
}

TEST(MeshWriter, WritesTheseBytes) {
  Material textured;
  textured.textures = {{0, "hull.texture", 1}};
  Geometry geometry;
  geometry.axis = true;
  geometry.faceNormals = 1;
  const std::string part = LevelPart(0, geometry.Lm() + Neighbours(1));
  const std::vector<Bone> bones = {{"root", "", {{0, {0, 2}}}}, {"arm", "root"}};
  const std::string lods[] = {
      Lm({LmInfo(2, {{1, "door", true}}), MaterialTable({textured}), BoneTable("BONT", bones),
          Attachments({"a.front:Cull", "door"}), Level(1, {part}, Bindings(bones)),
          Level(-1, {LevelPart(0, Geometry{}.Lm())}, Bindings(bones))}),
      Lm({LmInfo(1), MaterialTable({}), BoneTable("RBOT", bones), Level(1, {})}),
      SmallLm(),
      FullLm(),
  };
  for (const std::string& file : lods)
    EXPECT_EQ(SavedLm(*LoadLm(file).mesh), file);

  const std::string im[] = {
      Wrapper("IDXM", ImInfo(1) + Part(textured.Bytes(), geometry.Im(), Neighbours(1)) + Influences(bones) +
                          Attachments({"a.front"})),
      Im({Part(textured.Bytes(), Geometry{}.Im())}, BareBones(BoneChain(3))),
  };
  for (const std::string& file : im)
    EXPECT_EQ(SavedIm(*LoadIm(file).mesh), file);
}

TEST(MeshWriter, WritesWhatReadsBack) {
  const std::string bones =
      "bone r { group 0 { v 0 1 2 3 4; v 2 .5 0 0 0 } }\nbone arm { parent r }\nbone two {}\n";
  FilesInMemory files(
      {{"full.im", FullIm()},
       {"text.imtxt", "version 1.0\nposition 3 4 5\n" + bones +
                          "attachment a.x {}\nattachment y { position 1 2 3 }\n"
                          "Material m { texture 0 a.tga; property a b }\n"
                          "chunk m.m.gloss { vertex 1 2 3 4 5 6 7 8; axis 1 1 1; face 0 0 0 }\n"
                          "chunk m.m.onetex { name n; weights 2; vertex 1 2 3 4 5 6 7 8; face 0 0 0 }\n"}});
  const std::string texts[] = {
      "mesh 1 { name full.im }",
      "mesh 1 { name text.imtxt }",
      "mesh 0.5 { name full.im }\nmesh 1 { name text.imtxt }\nmesh 2 { name full.im }\nmesh door { name "
      "text.imtxt }",
      "mesh 1 { name text.imtxt }\nmesh door { name full.im; animated 1 }\ncalcPoint near; offset 3; "
      "multiplier 4",
  };
  for (const std::string& text : texts) {
    const LoadedLm load = LoadLmText("version 1.0\n" + text, files);
    ASSERT_EQ(load.result, RES_SUCCESS) << text;
    const LoadedLm again = LoadLm(SavedLm(*load.mesh));
    ASSERT_EQ(again.result, RES_SUCCESS) << text;
    std::string read = Describe(*again.mesh);
    for (std::size_t mark; (mark = read.find(":Cull")) != read.npos;)  // which stands in files alone
      read.erase(mark, 5);
    EXPECT_EQ(read, Describe(*load.mesh)) << text;
  }
}

TEST(MeshWriter, MarksCulledAttachmentsOnce) {
  const std::string file = Lm({LmInfo(1), MaterialTable({}), Attachments({"a.front", "door"}), Level(1, {})});
  const std::string once = SavedLm(*LoadLm(file).mesh);
  EXPECT_EQ(LoadLm(once).mesh->attachments[0].name, "a.front:Cull");
  EXPECT_EQ(LoadLm(once).mesh->attachments[1].name, "door");
  EXPECT_EQ(SavedLm(*LoadLm(once).mesh), once);
}

TEST(MeshWriter, LeavesOutWhatTheFormatCantHold) {
  // Types without faces have no face normals; a second texture set and colours have no place.
  const Geometry lines = {.version = 150, .format = 2, .faceNormals = 2, .textureSets = 2};
  const std::string file = SavedIm(*LoadIm(Im({Part(Material{}.Bytes(), lines.Im())})).mesh);
  EXPECT_EQ(file, Im({Part(Material{}.Bytes(), Geometry{.format = 2, .name = ""}.Im())}));

  // Without texture coordinates there are zeros in their place.
  const Geometry bare = {.version = 150, .textureSets = 0};
  const LoadedIm load = LoadIm(SavedIm(*LoadIm(Im({Part(Material{}.Bytes(), bare.Im())})).mesh));
  EXPECT_EQ(FloatsAt(*load.mesh->MainLevel().parts[0].chunk, Nox::StreamId::kTexture0, 2),
            (std::vector<float>{0, 0}));
}

TEST(MeshWriter, WantsALevel) {
  std::vector<std::uint8_t> bytes;
  EXPECT_EQ(SaveLodMesh({}, bytes), RES_UNKNOWN);
  EXPECT_EQ(SaveIndexedMesh({}, bytes), RES_UNKNOWN);
}

}  // namespace
}  // namespace morvex
