#include "engine/process.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>

#include "engine/named_mutex.h"
#include "engine/shared_memory.h"
#include "tests/engine/test_files.h"
#include "tests/scratch_folder.h"

namespace Nox {
namespace {

// A child process that runs `body` and then waits to be killed; `body` has run when the constructor returns.
class Child {
 public:
  template <typename Body>
  explicit Child(Body body) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    id_ = fork();
    if (id_ == 0) {
      const char answer = body() ? 'y' : 'n';
      [[maybe_unused]] const ssize_t told = write(ends[1], &answer, 1);
      pause();
      _exit(0);
    }
    close(ends[1]);
    started = read(ends[0], &answer_, 1) == 1 && answer_ == 'y';
    close(ends[0]);
  }
  ~Child() {
    Kill();
    waitpid(id_, nullptr, 0);
  }
  void Kill() { kill(id_, SIGKILL); }
  std::uint32_t Id() const { return static_cast<std::uint32_t>(id_); }

  bool started = false;

 private:
  pid_t id_ = -1;
  char answer_ = 0;
};

void AwaitDeath(const Child& child) {
  for (int i = 0; i < 1000 && IsProcessAlive(child.Id()); ++i)
    usleep(10000);
}

TEST(Process, KnowsTheLivingFromTheDead) {
  EXPECT_TRUE(IsProcessAlive(GetCurrentProcessId()));
  EXPECT_FALSE(IsProcessAlive(0));
  EXPECT_FALSE(IsProcessAlive(0xFFFFFFFF));
  Child child([] { return true; });
  EXPECT_TRUE(IsProcessAlive(child.Id()));
  child.Kill();
  AwaitDeath(child);  // its parent, this test, hasn't collected it
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
  Child child([&] { return NamedMutex(path).Wait(); });  // let go at once, with the object
  EXPECT_TRUE(mine.Wait(0));
  mine.Release();

  NamedMutex inherited(path);
  Child holder([&] { return inherited.Wait(); });
  ASSERT_TRUE(holder.started);
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
  Child child([&] {
    if (theirs.ProcessAttach() != SharedMemory::Attached::kFirst) return false;
    std::memcpy(theirs.Data(), "from the child..", 16);
    return true;
  });
  ASSERT_TRUE(child.started);
  SharedMemory mine(path, 16);
  EXPECT_EQ(mine.ProcessAttach(), SharedMemory::Attached::kShared);
  EXPECT_EQ(std::memcmp(mine.Data(), "from the child..", 16), 0);
  mine.ProcessDetach();
  child.Kill();
  AwaitDeath(child);
  EXPECT_EQ(mine.ProcessAttach(), SharedMemory::Attached::kFirst);
  EXPECT_EQ(std::filesystem::file_size(path), 16U);
  EXPECT_EQ(SharedMemory(scratch / "none/x", 16).ProcessAttach(), SharedMemory::Attached::kFailed);
}

}  // namespace
}  // namespace Nox
