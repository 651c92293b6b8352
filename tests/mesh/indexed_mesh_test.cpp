#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "tests/mesh/loaded_mesh.h"
#include "tests/mesh/mesh_builder.h"

namespace morvex {
namespace {

using namespace mesh_builder;

using ResultCase = std::tuple<const char*, std::string, MeshResult>;  // what it is, its file

void ExpectResults(const std::vector<ResultCase>& cases) {
  for (const auto& [what, file, result] : cases)
    EXPECT_EQ(MeshResultName(LoadIm(file).result), MeshResultName(result)) << what;
}

std::string ImOf(const std::string& info, const std::string& rest) {
  return Wrapper("IDXM", info + rest);
}

std::string OnePart(const Geometry& geometry, const std::string& rest = {}) {
  return Im({Part(Material{}.Bytes(), geometry.Im(), rest)});
}

std::string WithMaterial(const Material& material) {
  return Im({Part(material.Bytes(), Geometry{}.Im())});
}

TEST(IndexedMesh, AnswersForItsChunks) {
  const std::string part = Part(Material{}.Bytes(), Geometry{}.Im());
  const std::string bone = BoneChain(1);
  ExpectResults({
      {"small", SmallIm(), RES_SUCCESS},
      {"full", FullIm(), RES_SUCCESS},
      {"bytes behind the wrapper", SmallIm() + "behind", RES_SUCCESS},
      {"no parts", Im({}), RES_SUCCESS},
      {"nothing", "", RES_FILE_OPEN_ERROR},
      {"another wrapper", "jirf" + SmallIm().substr(4), RES_FILE_FORMAT_ERROR},
      {"another kind", Wrapper("LODM", ImInfo(1) + part), RES_FILE_FORMAT_ERROR},
      {"a byte left over", Wrapper("IDXM", ImInfo(1) + part + "x"), RES_FILE_FORMAT_ERROR},
      {"a byte too many", Wrapper("IDXM", ImInfo(1) + part, -1), RES_FILE_FORMAT_ERROR},
      {"a byte missing", Wrapper("IDXM", ImInfo(1) + part, 1), RES_FILE_FORMAT_ERROR},
      {"info 99", ImOf(ImInfo(1, 99), part), RES_FILE_VERSION_ERROR},
      {"info 100", ImOf(ImInfo(1, 100), part), RES_SUCCESS},
      {"info 102", ImOf(ImInfo(1, 102), part), RES_SUCCESS},
      {"info 104", ImOf(ImInfo(1, 104), part), RES_SUCCESS},
      {"info 105", ImOf(ImInfo(1, 105), part), RES_FILE_VERSION_ERROR},
      {"more behind the info", ImOf(ImInfo(1) + "more", part), RES_FILE_FORMAT_ERROR},
      {"fewer parts than said", ImOf(ImInfo(2), part), RES_FILE_FORMAT_ERROR},
      {"as many parts as can be said", ImOf(ImInfo(0xFFFFFFFF), part), RES_FILE_FORMAT_ERROR},
      {"part of another version", ImOf(ImInfo(1), Chunk("CHNK", 101, part.substr(12))),
       RES_FILE_VERSION_ERROR},
      {"no material", Im({Part("", Geometry{}.Im())}), RES_FILE_FORMAT_ERROR},
      {"neighbours", OnePart({}, Neighbours(1)), RES_SUCCESS},
      {"other neighbours", OnePart({}, Chunk("NINF", 101, std::string(12, 'n'))), RES_FILE_VERSION_ERROR},
      {"too few neighbours", OnePart({.faces = 2}, Neighbours(1)), RES_FILE_FORMAT_ERROR},
      {"more behind the neighbours", OnePart({}, Neighbours(2)), RES_FILE_FORMAT_ERROR},
      {"attachments alone", Im({part}, Attachments({"a"})), RES_SUCCESS},
      {"other attachments", Im({part}, Chunk("ATCH", 101, U32(0))), RES_FILE_VERSION_ERROR},
      {"more behind the attachments", Im({part}, Attachments({}) + "more"), RES_FILE_FORMAT_ERROR},
      {"as many attachments as can be said", Im({part}, Chunk("ATCH", 100, U32(~0U))), RES_FILE_FORMAT_ERROR},
      {"bones behind attachments", Im({part}, Attachments({}) + BareBones(bone)), RES_FILE_FORMAT_ERROR},
      {"both kinds of bones", Im({part}, Influences({{"r", ""}}) + BareBones(bone)), RES_FILE_FORMAT_ERROR},
  });
}

TEST(IndexedMesh, AnswersForItsBones) {
  const std::string part = Part(Material{}.Bytes(), Geometry{}.Im());
  const std::vector<Bone> bones = {{"root", "", {{0, {0}}}}};
  ExpectResults({
      {"a skin", Im({part}, Influences(bones)), RES_SUCCESS},
      {"a skin of a wrong size", Im({part}, Influences(bones, 100)), RES_SUCCESS},
      {"and attachments", Im({part}, Influences(bones, -3) + Attachments({"a"})), RES_SUCCESS},
      {"a skin of another version", Im({part}, Chunk("INFL", 101, U32(0))), RES_FILE_FORMAT_ERROR},
      {"as many bones as can be said", Im({part}, Chunk("INFL", 100, U32(~0U))), RES_FILE_FORMAT_ERROR},
      {"bone 1", Im({part}, BareBones(BoneChain(2, 1))), RES_SUCCESS},
      {"bone 20", Im({part}, BareBones(BoneChain(2, 20))), RES_SUCCESS},
      {"bone 50", Im({part}, BareBones(BoneChain(2, 50))), RES_SUCCESS},
      {"bone 51", Im({part}, BareBones(BoneChain(2, 51))), RES_FILE_VERSION_ERROR},
      {"bone 102", Im({part}, BareBones(BoneChain(2, 102))), RES_SUCCESS},
      {"bone 103", Im({part}, BareBones(BoneChain(2, 103))), RES_FILE_VERSION_ERROR},
      {"a bad child", Im({part}, BareBones(BoneChain(2).substr(0, 56) + BoneChain(1, 2))),
       RES_FILE_VERSION_ERROR},
      {"no bone", Im({part}, BareBones("")), RES_FILE_FORMAT_ERROR},
      {"bones of another version", Im({part}, Chunk("SKEL", 101, BoneChain(1))), RES_FILE_FORMAT_ERROR},
  });
}

TEST(IndexedMesh, AnswersForItsGeometry) {
  ExpectResults({
      {"100", OnePart({.version = 100}), RES_FILE_VERSION_ERROR},
      {"101", OnePart({.version = 101}), RES_SUCCESS},
      {"202", OnePart({.version = 202}), RES_FILE_VERSION_ERROR},
      {"surplus", OnePart({.rest = "from a later version"}), RES_SUCCESS},
      {"a surplus that isn't there", OnePart({.sizeOff = 1}), RES_FILE_FORMAT_ERROR},
      {"a size below its fields, as the wrapper's",
       Wrapper("IDXM", ImInfo(1) + Part(Material{}.Bytes(), Geometry{.sizeOff = -4}.Im()), -4),
       RES_FILE_FORMAT_ERROR},
      {"format 0", OnePart({.format = 0}), RES_SUCCESS},
      {"format 3", OnePart({.format = 3}), RES_FILE_FORMAT_ERROR},
      {"format 16 with flags", OnePart({.format = 0xFFFFFFE0 + 16}), RES_SUCCESS},
      {"format 24", OnePart({.format = 24}), RES_FILE_FORMAT_ERROR},
      {"no texture sets", OnePart({.version = 150, .textureSets = 0}), RES_SUCCESS},
      {"many texture sets", OnePart({.version = 150, .textureSets = 20}), RES_SUCCESS},
  });
  // Each of the counts as large as can be said: vertices, faces, indices, face normals, texture sets, weights.
  const std::string good = OnePart({.version = 150});
  const std::size_t counts = good.find("GEOM") + 20;
  for (std::size_t field = 0; field < 6; ++field) {
    for (const std::uint32_t count : {0xFFFFFFFFU, 0x80000001U, 0x15555556U, 0x0CCCCCCDU}) {
      std::string bad = good;
      bad.replace(counts + 4 * field, 4, U32(count));
      const bool isNoLength = field == 1 || field == 5;  // nothing of that length follows
      EXPECT_EQ(LoadIm(bad).result, isNoLength ? RES_SUCCESS : RES_FILE_FORMAT_ERROR)
          << field << ' ' << count;
    }
  }
}

TEST(IndexedMesh, ReadsGeometryByVersion) {
  const std::tuple<std::uint32_t, std::uint32_t, bool, std::uint32_t, const char*> kCases[] = {
      {101, 1, false, 0, ""}, {102, 1, false, 3, ""},     {103, 2, false, 3, ""},     {104, 2, true, 3, ""},
      {199, 2, true, 3, ""},  {200, 1, false, 3, "part"}, {201, 1, false, 3, "part"},
  };
  for (const auto& [version, sets, hasColours, weights, name] : kCases) {
    const Geometry geometry = {.version = version, .faceNormals = 2, .textureSets = 2, .weights = 3};
    const LoadedIm load = LoadIm(OnePart(geometry));
    ASSERT_EQ(load.result, RES_SUCCESS) << version;
    const MeshPart& part = load.mesh->MainLevel().parts[0];
    const Nox::GeometryChunk& chunk = *part.chunk;
    EXPECT_EQ(part.name, name) << version;
    EXPECT_EQ(chunk.TextureSetCount(), sets) << version;
    EXPECT_EQ(chunk.Hint().weightCount, weights) << version;
    EXPECT_EQ(chunk.Hint().chunkValue, 7) << version;
    EXPECT_EQ(FloatsAt(chunk, Nox::StreamId::kPosition, 2), (std::vector<float>{2, 4, 6})) << version;
    EXPECT_EQ(FloatsAt(chunk, Nox::TextureStream(sets - 1), 1),
              (std::vector<float>{1 + 10 * static_cast<float>(sets - 1), 0.5}))
        << version;
    EXPECT_EQ(FloatsAt(chunk, Nox::StreamId::kNormal, 2), (std::vector<float>{0, 2, 1})) << version;
    EXPECT_EQ(chunk.GetFaceNormalArray()[1], (Nox::Vector3{1, 5, 6})) << version;
    const std::vector<int> colour = {2, 0, 0, 255};
    EXPECT_EQ(BytesAt(chunk, Nox::StreamId::kColour, 2), hasColours ? colour : std::vector<int>()) << version;
    EXPECT_EQ(chunk.GetIndexArray()[2], 2) << version;
  }
  const LoadedIm load = LoadIm(OnePart({.format = 0x28, .axis = true}));
  const Nox::GeometryChunk& chunk = *load.mesh->MainLevel().parts[0].chunk;
  EXPECT_EQ(FloatsAt(chunk, Nox::StreamId::kAxis, 1), (std::vector<float>{1, 8, 9}));
  EXPECT_EQ(chunk.Flags(), 8U);  // what the low bits say
}

TEST(IndexedMesh, ReadsMaterialsByVersion) {
  // Version and power; the result, the power that is loaded, and the red of the third colour.
  const std::tuple<std::uint32_t, float, MeshResult, float, float> kCases[] = {
      {101, 55, RES_FILE_VERSION_ERROR, 0, 0}, {102, 55, RES_SUCCESS, 10, 0},
      {103, 55, RES_SUCCESS, 55, .7F},         {103, 10, RES_SUCCESS, 10, .7F},
      {103, 9.5, RES_SUCCESS, 10, .7F},        {104, 55, RES_FILE_VERSION_ERROR, 0, 0},
  };
  for (const auto& [version, power, result, loadedPower, third] : kCases) {
    const LoadedIm load = LoadIm(WithMaterial({.version = version, .flag = 0x80, .power = power}));
    EXPECT_EQ(load.result, result) << version << ' ' << power;
    if (load.mesh == nullptr) continue;
    const Nox::Material& material = *load.mesh->MainLevel().parts[0].material;
    const Nox::DisplayMaterial& display = material.GetDisplayMaterialProperties();
    EXPECT_EQ(display.power, loadedPower) << version << ' ' << power;
    EXPECT_EQ(display.colours[2].r, third) << version << ' ' << power;
    EXPECT_EQ(display.colours[2].a, version == 102 ? 0 : 1);
    EXPECT_EQ(display.colours[0], (Nox::Colour{.1F, .2F, .3F, 1}));
    EXPECT_EQ(display.colours[3], (Nox::Colour{.5, .75, 1, .5}));
    EXPECT_TRUE(material.GetFlag());
    EXPECT_EQ(material.GetOpacity(), 0.5);
    EXPECT_EQ(material.GetProperties(), (std::vector<Nox::Material::Property>{{"key", "value"}}));
  }
}

TEST(IndexedMesh, NamesMaterialsAndTexturesAsItsOwn) {
  const std::string file =
      WithMaterial({.textures = {{0, "c:\\work/hull.texture", 1}, {8, "bump.tga", 0.5}}});
  const LoadedIm load = LoadIm(file);
  ASSERT_EQ(load.result, RES_SUCCESS);
  EXPECT_EQ(load.mesh->name, "body.im");
  EXPECT_EQ(load.mesh->MainLevel().parts[0].material->GetRequestName(),
            "pack*trains/loco/body.im*hull.m.onetex");
  ASSERT_EQ(load.mesh->pendingTextures.size(), 2U);
  EXPECT_EQ(load.mesh->pendingTextures[0].texture,
            (Nox::TextureDefinition{0, "trains/loco/hull.texture", 1}));
  EXPECT_EQ(load.mesh->pendingTextures[1].texture, (Nox::TextureDefinition{8, "trains/loco/bump.tga", 0.5}));

  MeshLoadContext atRoot = TestContext();
  atRoot.resourceName = "body.im";
  EXPECT_EQ(LoadIm(file, atRoot).mesh->pendingTextures[1].texture.name, "bump.tga");
}

TEST(IndexedMesh, TellsMissingMaterials) {
  std::vector<std::string> missing;
  MeshLoadContext context = TestContext();
  context.missingMaterials = &missing;
  const std::string file = WithMaterial({.name = "hull.m.unheard"});
  EXPECT_EQ(LoadIm(file, context).result, RES_UNKNOWN_MATERIAL);
  EXPECT_EQ(missing, std::vector<std::string>{"pack*trains/loco/body.im*hull.m.unheard"});

  context.allowMaterialFallback = true;  // which knows the type no better
  EXPECT_EQ(LoadIm(file, context).result, RES_UNKNOWN_MATERIAL);

  context.materials = nullptr;
  EXPECT_EQ(LoadIm(file, context).mesh->MainLevel().parts[0].material->GetType(), "unheard");
}

TEST(IndexedMesh, DropsEmptyPartsAndGroups) {
  const Material kept = {.textures = {{0, "kept.tga", 1}}};
  const Material dropped = {.textures = {{0, "dropped.tga", 1}}};
  for (const Geometry& empty : {Geometry{.faces = 0}, Geometry{.vertices = 0}, Geometry{.indices = 0}}) {
    const std::string named = Geometry{.name = "third"}.Im();
    const LoadedIm load = LoadIm(Im(
        {Part(kept.Bytes(), Geometry{}.Im()), Part(dropped.Bytes(), empty.Im()), Part(kept.Bytes(), named)},
        Influences({{"root", "", {{5, {}}, {1, {2}}, {6, {}}}}})));
    ASSERT_EQ(load.result, RES_SUCCESS);
    const MeshLevel& level = load.mesh->MainLevel();
    ASSERT_EQ(level.parts.size(), 2U);
    ASSERT_EQ(level.bindings[0].size(), 1U) << "without the empty groups";
    EXPECT_EQ(level.parts[level.bindings[0][0].part].name, "third");
    EXPECT_EQ(level.VertexTotal(), 6U);
    EXPECT_EQ(level.FaceTotal(), 2U);
    EXPECT_EQ(load.mesh->pendingTextures.size(), 2U);
  }
}

TEST(IndexedMesh, HasABoxAroundItsPositions) {
  constexpr float kInf = std::numeric_limits<float>::infinity();
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  const LoadedIm two = LoadIm(FullIm());
  EXPECT_EQ(two.mesh->box, (MeshBox{{2, 4, 6}, {0, 0, 0}}));
  EXPECT_EQ(LoadIm(Im({})).mesh->box, MeshBox());

  std::string odd = SmallIm();
  odd.replace(odd.find(F32({2, 4, 6})), 12, F32({kNan, -kInf, 8}));
  EXPECT_EQ(LoadIm(odd).mesh->box, (MeshBox{{1, 2, 8}, {0, -kInf, 0}}));
}

}  // namespace
}  // namespace morvex
