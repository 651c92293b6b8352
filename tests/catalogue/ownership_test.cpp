// Two processes on one installation. The others are forked before anything is started here.

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "database/catalogue/asset_status.h"
#include "database/catalogue/instance_ownership.h"
#include "database/catalogue/kuid_generator.h"
#include "tests/catalogue/installation.h"
#include "tests/other_process.h"

namespace morvex::test {
namespace {

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
                       place_.Write("first.txt", ZEBGenerateKUID().ToDelimited(':'));
                       place_.Stop();
                     });
  ASSERT_TRUE(first.HasWorked());
  EXPECT_EQ(Field(kHolder), first.Id());
  KUID mine;
  std::thread waiting([&] {
    place_.Start();  // reads the base of new KUIDs that the other one is about to use
    mine = ZEBGenerateKUID();
  });
  Await(kWaiters, 1);
  EXPECT_EQ(Field(kMaster), first.Id());
  first.Finish();
  waiting.join();
  EXPECT_EQ(Field(kHolder), static_cast<uint32_t>(getpid()));
  EXPECT_EQ(Field(kWaiters), 0U);
  EXPECT_EQ(ZEBAssetCache::Instance().Count(), 2U);
  EXPECT_EQ(place_.Read("first.txt"), "-2:1001");
  EXPECT_EQ(mine, KUID(-2, 1002, 127));
}

TEST_F(OwnershipTest, AKilledHolderIsReplacedAndItsWorkRecovered) {
  place_.AddAsset("local/a", "<kuid:1:1>", "A");
  OtherProcess first([&] { place_.Start(); });
  ASSERT_TRUE(first.HasWorked());
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
  ASSERT_TRUE(first.HasWorked());
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
  ASSERT_TRUE(first.HasWorked());
  ZEBStartupSettings settings;
  settings.root = place_.Path("");
  settings.root.pop_back();
  ZEBInit(settings);
  EXPECT_TRUE(ZEBShutdown());
  EXPECT_EQ(Field(kHolder), first.Id());
  EXPECT_EQ(Field(kWaiters), 0U);
}

}  // namespace
}  // namespace morvex::test
