#include <gtest/gtest.h>

#include "tests/mesh/loaded_mesh.h"
#include "tests/mesh/mesh_builder.h"

// Every truncation of a good file, and every file with one byte changed, is refused or read as a good mesh, which
// can then be written.
namespace morvex {
namespace {

using namespace mesh_builder;

void UseIm(const LoadedIm& load) {
  EXPECT_TRUE(load.mesh == nullptr || LoadIm(SavedIm(*load.mesh)).result == RES_SUCCESS);
}

void UseLm(const LoadedLm& load) {
  EXPECT_TRUE(load.mesh == nullptr || LoadLm(SavedLm(*load.mesh)).result == RES_SUCCESS);
}

template <typename Use>
void DamageEverywhere(const std::string& good, const Use& use) {
  for (std::size_t size = 0; size < good.size(); ++size)
    use(good.substr(0, size));
  for (std::size_t at = 0; at < good.size(); ++at) {
    for (const int change : {0x01, 0x80, 0xFF}) {
      std::string bad = good;
      bad[at] = static_cast<char>(bad[at] ^ change);
      use(bad);
    }
  }
}

TEST(MeshDamage, IsAnswered) {
  for (const std::string& file :
       {FullIm(), Im({Part(Material{}.Bytes(), Geometry{.version = 150}.Im())}, BareBones(BoneChain(3)))}) {
    DamageEverywhere(file, [](const std::string& bad) { UseIm(LoadIm(bad)); });
    for (std::size_t size = 0; size < file.size(); ++size)
      EXPECT_NE(LoadIm(file.substr(0, size)).result, RES_SUCCESS) << size;
  }
  const std::string bare =
      Lm({LmInfo(1), MaterialTable({Material{}}), BoneTable("RBOT", {{"r", ""}, {"a", "r"}}),
          Level(1, {LevelPart(0, Geometry{}.Lm())})});
  for (const std::string& file : {FullLm(), bare}) {
    DamageEverywhere(file, [](const std::string& bad) { UseLm(LoadLm(bad)); });
    for (std::size_t size = 0; size < file.size(); ++size)
      EXPECT_NE(LoadLm(file.substr(0, size)).result, RES_SUCCESS) << size;
  }
}

TEST(MeshDamage, OfTextIsAnswered) {
  const std::string level =
      "version 1.0\nMaterial h { texture 0 \"a b.tga\" 1; property a b }\n"
      "chunk h.m.onetex { vertex 0 0 0 0 0 1 0 0; face 0 0 0 } # end\nbone r { group 0 { v 0 1 0 0 0 } }\n";
  DamageEverywhere(level, [](const std::string& bad) {
    const LoadedIm load = LoadImText(bad);
    EXPECT_TRUE(load.mesh == nullptr || !SavedIm(*load.mesh).empty());
  });
  FilesInMemory files({{"a.im", SmallIm()}});
  DamageEverywhere(
      "version 1.0\nmesh 1.5 { name a.im }\nmesh \"door\" { name a.im; animated true }\noffset 5",
      [&files](const std::string& bad) { UseLm(LoadLmText(bad, files)); });
}

}  // namespace
}  // namespace morvex
