#include <gtest/gtest.h>

#include "mesh/skeleton_of_influences.h"
#include "tests/mesh/loaded_mesh.h"
#include "tests/mesh/mesh_builder.h"

namespace morvex {
namespace {

using namespace mesh_builder;

std::vector<MeshInfluence> InfluencesOf(const std::vector<std::pair<const char*, const char*>>& bones) {
  std::vector<MeshInfluence> influences;
  for (const auto& [name, parent] : bones)
    influences.push_back({Nox::PString(name), Nox::PString(parent), {}, {}});
  return influences;
}

TEST(Skeleton, HangsBonesUnderTheirParents) {
  // The name and the parent of each bone, and the tree.
  const std::pair<std::vector<std::pair<const char*, const char*>>, const char*> kCases[] = {
      {{{"root", ""}, {"arm", "root"}, {"hand", "arm"}, {"leg", "root"}}, "root(arm(hand) leg)"},
      {{{"hand", "arm"}, {"arm", "root"}, {"root", ""}}, "root(arm(hand))"},  // parents behind their children
      {{{"arm", "root"}, {"root", ""}, {"root2", ""}}, "root(arm root2)"},    // one root alone
      {{{"root", ""}, {"arm", "nobody"}, {"hand", "arm"}}, "root(arm(hand))"},  // a parent that isn't there
      {{{"root", ""}, {"arm", "arm"}}, "root(arm)"},                            // its own parent
      {{{"root", ""}, {"a", "c"}, {"b", "a"}, {"c", "b"}, {"d", "a"}},
       "root(b(c(a(d))))"},                                                      // a circle, and one on it
      {{{"root", ""}, {"a", "x"}, {"x", "root"}, {"x", "a"}}, "root(x(a(x)))"},  // two of one name: the first
      {{{"a", "b"}, {"b", "a"}}, ""},                                            // no root
      {{}, ""},
  };
  for (const auto& [bones, tree] : kCases) {
    std::vector<MeshInfluence> influences = InfluencesOf(bones);
    EXPECT_EQ(BoneTreeText(SkeletonOfInfluences(influences)), tree);
  }
  std::vector<MeshInfluence> influences = InfluencesOf({{"root", ""}, {"second", ""}});
  SkeletonOfInfluences(influences);
  EXPECT_EQ(influences[0].parent, "");
  EXPECT_EQ(influences[1].parent, "root");
}

TEST(Skeleton, TakesTreesOfAnyDepth) {
  constexpr int kDepth = 100000;
  const std::string part = Part(Material{}.Bytes(), Geometry{}.Im());
  const LoadedIm nested = LoadIm(Im({part}, BareBones(BoneChain(kDepth))));
  ASSERT_EQ(nested.result, RES_SUCCESS);
  EXPECT_EQ(nested.mesh->skeleton.DepthFirst().size(), std::size_t{kDepth});
  EXPECT_EQ(nested.mesh->skeleton.At(kDepth - 1).parent, std::uint32_t{kDepth - 2});

  std::vector<Bone> bones;
  for (int i = 0; i < kDepth; ++i)
    bones.push_back({std::to_string(i), i + 1 < kDepth ? std::to_string(i + 1) : ""});
  const LoadedIm linked = LoadIm(Im({part}, Influences(bones)));
  ASSERT_EQ(linked.result, RES_SUCCESS);
  EXPECT_EQ(linked.mesh->skeleton.DepthFirst().back(), 0U);

  bones.back().parent = "0";  // now they are one circle, apart from the root
  bones.push_back({"root", ""});
  EXPECT_EQ(LoadIm(Im({part}, Influences(bones))).mesh->skeleton.DepthFirst().size(), bones.size());

  bones.erase(bones.begin(), bones.end() - 1);
  for (int i = 0; i < kDepth; ++i)
    bones.push_back({std::to_string(i), i == 0 ? "root" : std::to_string(i - 1)});
  const std::string lod = Lm({LmInfo(1), MaterialTable({Material{}}), BoneTable("RBOT", bones),
                              Level(1, {LevelPart(0, Geometry{}.Lm())})});
  EXPECT_EQ(LoadLm(lod).mesh->skeleton.DepthFirst().size(), bones.size());
}

// A skinned mesh of one part and two bones, as a display that moves bones loads it.
LoadedIm LoadSkinned(const std::vector<Bone>& bones, std::uint32_t weights, MeshSettings settings = {},
                     std::uint32_t influences = 4, std::uint32_t matrices = 24) {
  MeshLoadContext context = TestContext();
  context.display.skinsMeshes = true;
  context.settings = settings;
  return LoadIm(
      Wrapper("IDXM", ImInfo(1, 103, influences, matrices) +
                          Part(Material{}.Bytes(), Geometry{.weights = weights}.Im()) + Influences(bones)),
      context);
}

TEST(Skin, BindsVerticesToBones) {
  const std::vector<Bone> bones = {{"root", "", {{0, {0, 1, 99}, 0.25}, {7, {0}}}},
                                   {"arm", "root", {{0, {1, 1, 1}, 0.5}}},
                                   {"far", "root", {{0, {0, 1, 2, 0}}}}};
  const auto load = LoadSkinned(bones, 3, {.hardwareAnimationFloatPrecision = true});
  ASSERT_EQ(load.result, RES_SUCCESS);
  const Nox::GeometryChunk& chunk = *load.mesh->MainLevel().parts[0].chunk;
  EXPECT_TRUE(load.mesh->MainLevel().hardwareSkinned);
  EXPECT_EQ(chunk.InfluenceMatrices(),
            (std::vector<std::uint32_t>{0, 1}));  // the group of "far" is too large
  EXPECT_EQ(FloatsAt(chunk, Nox::WeightStream(3), 0), (std::vector<float>{.25, 0, 0}));
  EXPECT_EQ(BytesAt(chunk, Nox::StreamId::kBlendIndices, 0), (std::vector<int>{0, 0xFE, 0, 0}));
  EXPECT_EQ(FloatsAt(chunk, Nox::WeightStream(3), 1), (std::vector<float>{.25, .5, .5}));
  EXPECT_EQ(BytesAt(chunk, Nox::StreamId::kBlendIndices, 1), (std::vector<int>{0, 3, 3, 0}));
  EXPECT_EQ(FloatsAt(chunk, Nox::WeightStream(3), 2), (std::vector<float>{1, 0, 0}));  // moved by none
  EXPECT_EQ(BytesAt(chunk, Nox::StreamId::kBlendIndices, 2), (std::vector<int>{0, 0, 0, 0}));

  const auto packed = LoadSkinned(bones, 2);
  const Nox::GeometryChunk& packedChunk = *packed.mesh->MainLevel().parts[0].chunk;
  EXPECT_EQ(BytesAt(packedChunk, Nox::StreamId::kPackedWeights, 0), (std::vector<int>{0, 0, 0, 63}));
  EXPECT_EQ(BytesAt(packedChunk, Nox::StreamId::kPackedWeights, 1), (std::vector<int>{127, 127, 127, 63}));
  EXPECT_EQ(BytesAt(packedChunk, Nox::StreamId::kPackedWeights, 2), (std::vector<int>{0, 0, 0, 255}));
}

TEST(Skin, IsLeftToSoftwareBeyondTheLimits) {
  const std::vector<Bone> bones = {{"root", "", {{0, {0}}}}};
  const struct {
    const char* what;
    LoadedIm load;
    bool isHardware;
  } kCases[] = {
      {"at the limits", LoadSkinned(bones, 4, {}, 4, 24), true},
      {"no influences", LoadSkinned(bones, 4, {}, 0, 24), false},
      {"too many influences", LoadSkinned(bones, 4, {}, 5, 24), false},
      {"too many matrices", LoadSkinned(bones, 4, {}, 4, 25), false},
      {"by the settings", LoadSkinned(bones, 4, {.softwareAnimation = true}), false},
      {"allowed by the settings", LoadSkinned(bones, 4, {.softwareAnimation = false}), true},
      {"a display that can't", LoadIm(FullIm()), false},
  };
  for (const auto& c : kCases) {
    ASSERT_EQ(c.load.result, RES_SUCCESS) << c.what;
    const Nox::GeometryChunk& chunk = *c.load.mesh->MainLevel().parts[0].chunk;
    EXPECT_EQ(c.load.mesh->MainLevel().hardwareSkinned, c.isHardware) << c.what;
    EXPECT_EQ(chunk.Flags(), c.isHardware ? 4U : 0x44U) << c.what;
    EXPECT_EQ(chunk.InfluenceMatrices().size(), c.isHardware ? 1U : 0U) << c.what;
  }
}

}  // namespace
}  // namespace morvex
