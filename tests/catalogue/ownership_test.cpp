// Two processes on one installation. The others are forked before anything is started here.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <set>
#include <thread>

#include "database/catalogue/asset_status.h"
#include "database/catalogue/instance_ownership.h"
#include "database/catalogue/kuid_generator.h"
#include "tests/catalogue/installation.h"

namespace morvex::test {
namespace {

// A process that does something, then says so, and goes on when it is told to.
class OtherProcess {
 public:
  explicit OtherProcess(
      const std::function<void()>& work, const std::function<void()>& end = [] {}) {
    EXPECT_EQ(pipe(said_), 0);
    EXPECT_EQ(pipe(told_), 0);
    id_ = fork();
    if (id_ != 0) {
      close(told_[0]);
      return;
    }
    close(told_[1]);
    work();
    char byte = 1;
    if (write(said_[1], &byte, 1) == 1 && read(told_[0], &byte, 1) >= 0) end();
    _exit(0);
  }
  ~OtherProcess() { Kill(); }

  void AwaitWork() const {
    char byte = 0;
    EXPECT_EQ(read(said_[0], &byte, 1), 1);
  }
  void Finish() {
    close(told_[1]);
    Collect();
  }
  void Kill() {
    if (id_ == -1) return;
    kill(id_, SIGKILL);
    Collect();
  }
  uint32_t Id() const { return static_cast<uint32_t>(id_); }

 private:
  void Collect() {
    waitpid(id_, nullptr, 0);
    id_ = -1;
  }

  int said_[2];
  int told_[2];
  pid_t id_ = -1;
};

class OwnershipTest : public ::testing::Test {
 protected:
  uint32_t Field(size_t index) const {
    const std::string block = place_.Read("cache/" + std::string(InstanceOwnership::kName) + "-ipc");
    EXPECT_EQ(block.size(), 16U);
    uint32_t value = 0;
    for (size_t i = 0; i < 4 && block.size() == 16; ++i)
      value |= static_cast<uint32_t>(static_cast<uint8_t>(block[index * 4 + i])) << (8 * i);
    return value;
  }
  static constexpr size_t kMaster = 0, kHolder = 1, kWaiters = 2, kGeneration = 3;

  void Await(size_t field, uint32_t value) const {
    for (int i = 0; i < 500 && Field(field) != value; ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(Field(field), value);
  }

  Installation place_;
};

TEST_F(OwnershipTest, TheBlockSaysWhoIsMasterAndHolder) {
  place_.Start();
  const auto self = static_cast<uint32_t>(getpid());
  EXPECT_EQ(Field(kMaster), self);
  EXPECT_EQ(Field(kHolder), self);
  EXPECT_EQ(Field(kWaiters), 0U);
  EXPECT_EQ(Field(kGeneration), 0U);
  // The thread that loads may be late, and take the ownership once more.
  bool released = false;
  for (int i = 0; i < 100 && !released; ++i) {
    ZEBReleaseOwnership();
    released = Field(kHolder) == InstanceOwnership::kNobody;
  }
  EXPECT_TRUE(released);
  EXPECT_EQ(Field(kGeneration), 1U) << "written before it was given away";
  ZEBHasErrors(KUID());
  EXPECT_EQ(Field(kHolder), self);
  place_.Stop();
  EXPECT_EQ(Field(kMaster), InstanceOwnership::kNobody);
  EXPECT_EQ(Field(kHolder), InstanceOwnership::kNobody);
}

TEST_F(OwnershipTest, ASecondProcessWaitsAndThenSeesWhatTheFirstWrote) {
  place_.AddAsset("local/a", "<kuid:1:1>", "A");
  OtherProcess first([&] { place_.Start(); },
                     [&] {
                       ZEBAssetCache::Instance().Create(KUID(1, 2, 0));
                       place_.Stop();
                     });
  first.AwaitWork();
  EXPECT_EQ(Field(kHolder), first.Id());
  std::thread waiting([&] { place_.Start(); });
  Await(kWaiters, 1);
  EXPECT_EQ(Field(kMaster), first.Id());
  first.Finish();
  waiting.join();
  EXPECT_EQ(Field(kHolder), static_cast<uint32_t>(getpid()));
  EXPECT_EQ(Field(kWaiters), 0U);
  EXPECT_EQ(ZEBAssetCache::Instance().Count(), 2U);
}

TEST_F(OwnershipTest, AKilledHolderIsReplacedAndItsWorkRecovered) {
  place_.AddAsset("local/a", "<kuid:1:1>", "A");
  OtherProcess first([&] { place_.Start(); });
  first.AwaitWork();
  std::thread waiting([&] { place_.Start(); });
  Await(kWaiters, 1);
  first.Kill();
  waiting.join();
  EXPECT_EQ(Field(kMaster), static_cast<uint32_t>(getpid()));
  EXPECT_EQ(Field(kHolder), static_cast<uint32_t>(getpid()));
  EXPECT_EQ(Copies("<kuid:1:1>"), "eLp");
}

// The number of a killed process may belong to any other one by now, even to this one.
TEST_F(OwnershipTest, ABlockThatDeadProcessesLeftIsNotBelieved) {
  OtherProcess first([&] { place_.Start(); });
  first.AwaitWork();
  first.Kill();
  const std::string name = "cache/" + std::string(InstanceOwnership::kName) + "-ipc";
  std::string block = place_.Read(name);
  for (size_t i = 0; i < 4; ++i)
    block[i] = block[4 + i] = static_cast<char>(static_cast<uint32_t>(getppid()) >> (8 * i));
  place_.Write(name, block);
  place_.Start();
  EXPECT_EQ(Field(kHolder), static_cast<uint32_t>(getpid()));
}

// `version` and the like touch no record, so they must not wait.
TEST_F(OwnershipTest, AShutdownDoesNotWaitForAnotherProcess) {
  OtherProcess first([&] { place_.Start(); });
  first.AwaitWork();
  ZEBStartupSettings settings;
  settings.root = place_.Path("");
  settings.root.pop_back();
  ZEBInit(settings);
  EXPECT_TRUE(ZEBShutdown());
  EXPECT_EQ(Field(kHolder), first.Id());
  EXPECT_EQ(Field(kWaiters), 0U);
}

TEST_F(OwnershipTest, TwoProcessesNeverGiveOutTheSameKuid) {
  OtherProcess other([&] { place_.Start(); },
                     [&] {
                       place_.Write("other.txt", ZEBGenerateKUID().ToDelimited(':'));
                       place_.Stop();
                     });
  other.AwaitWork();
  KUID mine;
  std::thread waiting([&] {
    place_.Start();  // reads the base that the other one is about to use
    mine = ZEBGenerateKUID();
  });
  Await(kWaiters, 1);
  other.Finish();
  waiting.join();
  EXPECT_EQ(place_.Read("other.txt"), "-2:1001");
  EXPECT_EQ(mine, KUID(-2, 1002, 127));
}

}  // namespace
}  // namespace morvex::test
