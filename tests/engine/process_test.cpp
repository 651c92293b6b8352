#include "engine/process.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>

#include "engine/named_mutex.h"
#include "engine/shared_memory.h"
#include "tests/other_process.h"
#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace Nox {
namespace {

TEST(Process, KnowsTheLivingFromTheDead) {
  EXPECT_TRUE(IsProcessAlive(GetCurrentProcessId()));
  EXPECT_FALSE(IsProcessAlive(0));
  EXPECT_FALSE(IsProcessAlive(0xFFFFFFFF));
  OtherProcess child([] {});
  EXPECT_TRUE(IsProcessAlive(child.Id()));
  child.Kill();  // its parent, this test, hasn't collected it
  EXPECT_FALSE(IsProcessAlive(child.Id()));
}

TEST(Process, TerminateFlushesWhatWasPrinted) {
  const ScratchFolder scratch;
  const std::string path = scratch / "out";
  const auto run = [&](const char* target, std::uint8_t code) {
    const pid_t id = fork();
    if (id == 0) {
      if (std::freopen(target, "w", stdout) == nullptr) _exit(99);
      std::fputs("printed", stdout);
      TerminateProcess(code);
    }
    int status = 0;
    waitpid(id, &status, 0);
    return WEXITSTATUS(status);
  };
  EXPECT_EQ(run(path.c_str(), 0), 0);
  EXPECT_EQ(GetFile(path), "printed");
  EXPECT_EQ(run(path.c_str(), 255), 255);
  EXPECT_EQ(run("/dev/full", 0), 255);
}

TEST(NamedMutex, DiesWithItsProcess) {
  const ScratchFolder scratch;
  const std::string path = scratch / "mutex";
  NamedMutex mine(path);
  OtherProcess child([&] {
    if (!NamedMutex(path).Wait()) _exit(1);  // let go at once, with the object
  });
  ASSERT_TRUE(child.HasWorked());
  EXPECT_TRUE(mine.Wait(0));
  mine.Release();

  NamedMutex inherited(path);
  OtherProcess holder([&] {
    if (!inherited.Wait()) _exit(1);
  });
  ASSERT_TRUE(holder.HasWorked());
  EXPECT_FALSE(mine.Wait(0));
  EXPECT_FALSE(mine.Wait(30));
  holder.Kill();
  EXPECT_TRUE(mine.Wait(10000));
  mine.Release();
  EXPECT_FALSE(NamedMutex(scratch / "none/mutex").Wait(0));
}

TEST(SharedMemory, NoticesLivingPartnersOnly) {
  const ScratchFolder scratch;
  const std::string path = scratch / "block";
  SharedMemory theirs(path, 16);
  OtherProcess child([&] {
    if (theirs.ProcessAttach() != SharedMemory::Attached::kFirst) _exit(1);
    std::memcpy(theirs.Data(), "from the child..", 16);
  });
  ASSERT_TRUE(child.HasWorked());
  SharedMemory mine(path, 16);
  EXPECT_EQ(mine.ProcessAttach(), SharedMemory::Attached::kShared);
  EXPECT_EQ(std::memcmp(mine.Data(), "from the child..", 16), 0);
  mine.ProcessDetach();
  child.Kill();
  EXPECT_EQ(mine.ProcessAttach(), SharedMemory::Attached::kFirst);
  EXPECT_EQ(std::filesystem::file_size(path), 16U);
  EXPECT_EQ(SharedMemory(scratch / "none/x", 16).ProcessAttach(), SharedMemory::Attached::kFailed);
}

}  // namespace
}  // namespace Nox
