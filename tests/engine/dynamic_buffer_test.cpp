#include "engine/dynamic_buffer.h"

#include <gtest/gtest.h>

#include <string>

#include "engine/reference.h"

namespace Nox {
namespace {

std::string Text(const DynamicBuffer& buffer) {
  return std::string(buffer.Bytes().begin(), buffer.Bytes().end());
}

TEST(DynamicBuffer, WritesOverAndBehind) {
  DynamicBuffer buffer(4, 8);
  EXPECT_EQ(buffer.Write("abcdef", 6), 6U);
  buffer.Seek(4);
  buffer.Write("XYZ", 3);
  EXPECT_EQ(Text(buffer), "abcdXYZ");
  buffer.Seek(5);
  char back[8] = {};
  EXPECT_EQ(buffer.Read(back, 8), 2U);
  EXPECT_STREQ(back, "YZ");
  EXPECT_EQ(buffer.Read(back, 8), 0U);
}

struct Counted : ReferenceCountMP {
  explicit Counted(int& alive) : alive_(alive) { ++alive_; }
  ~Counted() override { --alive_; }
  int& alive_;
  Ref<Counted> next;
};

TEST(Reference, TheLastReferenceDeletes) {
  int alive = 0;
  Ref<Counted> first = MakeRef<Counted>(alive);
  EXPECT_TRUE(first->IsUnique());
  Ref<Counted> second = first;
  EXPECT_FALSE(first->IsUnique());
  first = nullptr;
  EXPECT_EQ(alive, 1);
  second->next = MakeRef<Counted>(alive);
  second = second->next;  // a part of what the reference itself keeps alive
  EXPECT_EQ(alive, 1);
  second = Ref<Counted>();
  EXPECT_EQ(alive, 0);
}

}  // namespace
}  // namespace Nox
