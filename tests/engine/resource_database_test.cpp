#include "engine/resource_database.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "engine/file.h"
#include "engine/resource_type.h"
#include "tests/scratch_folder.h"

namespace Nox {
namespace {

int loads = 0;

// Loads with the answer that its file's size says.
class Thing final : public Resource {
 public:
  using Resource::Resource;
  bool isComplete = false;

 protected:
  int Load() override {
    ++loads;
    return static_cast<int>(Nox::File::SizeOf(File()).value_or(99));
  }
  void LoadComplete() override { isComplete = true; }
};

class ResourceDatabaseTest : public testing::Test {
 protected:
  ResourceDatabaseTest() {
    loads = 0;
    std::filesystem::create_directories(folder_ / "In/folder.thing");
    for (const char* name :
         {"In/One.thing", "In/b.thing.txt", "In/c.other", "In/wall.texture.txt", "In/Roof.tga"})
      std::ofstream(folder_ / name);
    std::ofstream(folder_ / "In/broken.thing") << "123";
    Nox::File::Subst(kPack, Path(), true);
  }
  ~ResourceDatabaseTest() override { Nox::File::Subst(kPack, {}, true); }
  std::string Path() const { return folder_ / ""; }

  static inline const PString kPack{"things"};
  const ResourceType<Thing> short_{"test.thing", "", ""};
  const ResourceType<Thing> long_{"test.thing.txt", "", ""};
  ScratchFolder folder_;
  ResourceDatabase database_{kPack};
};

TEST_F(ResourceDatabaseTest, FindsFilesThatAPluginKnows) {
  for (const char* name : {"In/One.thing", "in/one.THING", "in\\one.thing", "In/b.thing.txt"})
    EXPECT_NE(database_.Get(name), nullptr) << name;
  for (const char* name :
       {"In/two.thing", "In/c.other", "In/folder.thing", "In", "", "../things/In/One.thing"})
    EXPECT_EQ(database_.Get(name), nullptr) << name;
  EXPECT_EQ(database_.Get("In/One.thing")->GetOwnerName(), kPack);
}

TEST_F(ResourceDatabaseTest, LoadsOnce) {
  const Ref<Resource> one = database_.Get("In/One.thing"), broken = database_.Get("In/broken.thing");
  EXPECT_EQ(loads, 0);
  EXPECT_EQ(one->Lock(), 0);
  EXPECT_EQ(database_.Get("in/one.thing")->Lock(), 0);
  EXPECT_EQ(loads, 1);
  EXPECT_TRUE(static_cast<const Thing&>(*one).isComplete);
  EXPECT_EQ(broken->Lock(), 3);
  EXPECT_EQ(broken->Lock(), 3);
  EXPECT_EQ(loads, 2);
  EXPECT_FALSE(static_cast<const Thing&>(*broken).isComplete);
}

TEST_F(ResourceDatabaseTest, DumpsWhatNobodyHolds) {
  const Ref<Resource> held = database_.Get("In/One.thing");
  (void)database_.Get("In/broken.thing")->Lock();
  (void)database_.Get("In/b.thing.txt")->Lock();
  database_.Get("In/b.thing.txt")->Unlock();
  ASSERT_EQ(loads, 2);
  database_.DumpUnusedResourcesFromCache();
  EXPECT_EQ(database_.Get("in/one.thing"), held);
  (void)database_.Get("In/broken.thing")->Lock();
  EXPECT_EQ(loads, 2) << "it was locked";
  (void)database_.Get("In/b.thing.txt")->Lock();
  EXPECT_EQ(loads, 3);
}

TEST_F(ResourceDatabaseTest, KnowsTextures) {
  for (const char* name : {"In/roof.tga", "In/wall.texture", "in/Wall.Texture", "In/wall.texture.txt"})
    EXPECT_TRUE(database_.HasTexture(name)) << name;
  for (const char* name : {"In/roof", "In/roof.texture", "In/wall", "In/wall.tga", "In", ""})
    EXPECT_FALSE(database_.HasTexture(name)) << name;
}

}  // namespace
}  // namespace Nox
