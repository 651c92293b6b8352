#include "tagdata/kuid_list.h"

#include <gtest/gtest.h>

#include "tagdata/tag_container.h"

namespace morvex {
namespace {

KUID Number(int32_t n) {
  return KUID::Make(1, n);
}

std::vector<int32_t> Numbers(const KUIDList& list) {
  std::vector<int32_t> numbers;
  for (const KUID& kuid : list)
    numbers.push_back(kuid.contentId);
  return numbers;
}

KUIDList Filled(int32_t count) {
  KUIDList list;
  for (int32_t n = 0; n < count; ++n)
    list.Add(Number(n));
  return list;
}

TEST(KuidList, RemoveSwapFillsTheHoleFromItsOwnBlock) {
  KUIDList list = Filled(300);
  EXPECT_TRUE(list.RemoveSwap(Number(3)));
  EXPECT_FALSE(list.RemoveSwap(Number(3)));
  std::vector<int32_t> numbers = Numbers(list);
  EXPECT_EQ(numbers[3], 127);
  EXPECT_EQ(numbers[126], 126);
  EXPECT_EQ(numbers[127], 128) << "the next block stays where it is";

  // The hole stays in its block: new ones go to the end, and the second block still has all its 128.
  list.Add(Number(300));
  EXPECT_TRUE(list.RemoveSwap(Number(128)));
  numbers = Numbers(list);
  EXPECT_EQ(numbers[127], 255);
  EXPECT_EQ(numbers.back(), 300);
}

TEST(KuidList, RemoveKeepsOrderAndFreesEmptyBlocks) {
  KUIDList list = Filled(130);
  for (const int32_t n : {128, 0, 129, 64})
    EXPECT_TRUE(list.Remove(Number(n)));
  list.Add(Number(500));
  const std::vector<int32_t> numbers = Numbers(list);
  EXPECT_EQ(numbers.size(), 127u);
  EXPECT_EQ(numbers.front(), 1);
  EXPECT_EQ(numbers[62], 63);
  EXPECT_EQ(numbers[63], 65);
  EXPECT_EQ(numbers.back(), 500);
  while (!list.IsEmpty())
    EXPECT_TRUE(list.Remove(*list.begin()));
  EXPECT_EQ(list.begin(), list.end());
}

TEST(KuidList, TellsWhatItHoldsAtAnySize) {
  KUIDList list;
  EXPECT_FALSE(list.AddIfValid(KUID()));
  for (int round = 0; round < 2; ++round) {
    for (int32_t n = 0; n < 100000; ++n)
      EXPECT_EQ(list.AddUnique(Number(n)), round == 0);
  }
  EXPECT_EQ(list.Count(), 100000u);
  list.Add(Number(7));
  EXPECT_TRUE(list.Remove(Number(7)));
  EXPECT_TRUE(list.Contains(Number(7))) << "the second one is still there";
  EXPECT_TRUE(list.Remove(Number(7)));
  EXPECT_EQ(list.Find(Number(7)), nullptr);
  EXPECT_EQ(*list.Find(Number(99999)), Number(99999));
}

TEST(KuidList, GoesThroughSoups) {
  KUIDList list;
  for (const KUID& kuid : {Number(5), KUID(), Number(6)})
    list.Add(kuid);
  const TagContainer numbered = list.ToContainer();
  EXPECT_EQ(numbered.GetCount(), 2u);
  EXPECT_EQ(numbered.GetKUID(Nox::PString("1")), Number(6));

  TagContainer inner;
  inner.SetString(Nox::PString("mesh"), "<kuid:1:9>");
  inner.SetString(Nox::PString("loose"), "1:10");
  TagContainer config;
  config.SetInt(Nox::PString("number"), 3);
  config.SetContainer(Nox::PString("nested"), inner);
  config.SetKUID(Nox::PString("kuid"), Number(8));
  config.SetString(Nox::PString("again"), "<kuid:1:9>");

  KUIDList found;
  found.ScanContainer(config);
  EXPECT_EQ(Numbers(found), (std::vector<int32_t>{9, 8}));
  KUIDList back;
  back.FromContainer(numbered);
  back.FromContainer(config);
  EXPECT_EQ(Numbers(back), (std::vector<int32_t>{5, 6, 3, 8, 9})) << "a number is a KUID without an author";
}

}  // namespace
}  // namespace morvex
