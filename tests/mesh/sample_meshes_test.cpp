// The meshes of the samples are what their program makes.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace fs = std::filesystem;

namespace {

TEST(SampleMeshes, AreAsTheirProgramWritesThem) {
  const ScratchFolder made;
  ASSERT_EQ(std::system((std::string(MORVEX_MAKE_MESHES) + " " + made.path()).c_str()), 0);
  size_t count = 0;
  for (const auto& entry : fs::recursive_directory_iterator(made.path())) {
    if (!entry.is_regular_file()) continue;
    const fs::path name = fs::relative(entry.path(), made.path());
    EXPECT_TRUE(GetFile(entry.path()) == GetFile(MORVEX_SAMPLES / name))
        << name << ": run make_meshes on the folder of the samples";
    ++count;
  }
  EXPECT_GE(count, 40u);
}

}  // namespace
