#include <gtest/gtest.h>

#include "tests/mesh/loaded_mesh.h"
#include "tests/mesh/mesh_builder.h"

namespace morvex {
namespace {

using namespace mesh_builder;

TEST(MeshWriter, WritesTheseBytes) {
  const Material textured = {.textures = {{0, "hull.texture", 1}}};
  const Geometry geometry = {.faceNormals = 1, .axis = true};
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

TEST(MeshWriter, WritesLevelsThatCameFromOtherFiles) {
  const Material textured = {.textures = {{0, "hull.texture", 1}}};
  const std::vector<Bone> bones = {{"root", "", {{0, {0, 2}}}}, {"arm", "root"}};
  const std::string im = Im({Part(textured.Bytes(), Geometry{.axis = true}.Im(), Neighbours(1))},
                            Influences(bones) + Attachments({"a.front", "door"}));
  FilesInMemory files(
      {{"near.im", im},
       {"far.imtxt",
        "version 1.0\nposition 1 2 3; maxInfluencesPerVertex 1; maxMatricesPerChunk 2\nbone root { position "
        "4 0 0; group 0 { v 0 1 1 2 3; v 2 1 1 2 3 } }\n"
        "bone arm { parent root; position 3 0 0 }\n"
        "attachment a.front { position 0 1 2 }\nattachment door { position 1 1 2 }\n"
        "Material hull { texture 0 far.tga .5; property key value; flag true; opacity .5; power 20\n"
        "colour1 .1 .2 .3; colour2 .4 .5 .6; colour3 .7 .8 .9; colour4 .5 .75 1 }\n"
        "chunk hull.m.onetex { name part; value 7; vertex 0 0 0 0 0 1 0 .5; vertex 1 2 3 0 1 1 1 .5\n"
        "vertex 2 4 6 0 2 1 2 .5; face 0 1 2 }\n"}});
  const LoadedLm load = LoadLmText(
      "version 1.0\nmesh .5 { name far.imtxt }\nmesh 1 { name near.im }\nmesh door { name far.imtxt; "
      "animated 1 }\ncalcPoint far; offset 10; multiplier 11; animationCutOff 12; renderCutOff 13\n"
      "attachmentCutOff 14",
      files);
  ASSERT_EQ(load.result, RES_SUCCESS);
  const Material far = {.textures = {{0, "far.tga", .5}}};
  const std::string near =
      Level(1, {LevelPart(1, Geometry{.axis = true}.Lm() + Neighbours(1))}, Bindings(bones));
  EXPECT_EQ(SavedLm(*load.mesh), Lm({LmInfo(2, {{0, "door", true}}), MaterialTable({far, textured}),
                                     BoneTable("BONT", bones), Attachments({"a.front:Cull", "door"}),
                                     Level(.5, {LevelPart(0, Geometry{}.Lm())}, Bindings(bones)), near}));
}

TEST(MeshWriter, MarksAttachmentsOfOtherMeshesOnceAsCulled) {
  const std::string file = Lm({LmInfo(1), MaterialTable({}),
                               Attachments({"a.door", "door", "b.A.x", "a", "extra.door"}), Level(1, {})});
  const std::string once = SavedLm(*LoadLm(file).mesh);
  const LoadedLm again = LoadLm(once);
  std::string names;
  for (const MeshAttachment& attachment : again.mesh->attachments)
    names += attachment.name.Text() + " ";
  EXPECT_EQ(names, "a.door:Cull door b.A.x:Cull a extra.door:Cull ");
  EXPECT_EQ(SavedLm(*again.mesh), once);
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
