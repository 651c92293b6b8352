#include "engine/reference.h"

#include <gtest/gtest.h>

namespace Nox {
namespace {

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
