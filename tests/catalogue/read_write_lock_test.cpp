#include "database/catalogue/read_write_lock.h"

#include <gtest/gtest.h>

#include <thread>
#include <tuple>

namespace morvex {
namespace {

using Mode = ZEBReadWriteLock::Mode;

// Tries on a thread of its own, and gives back at once what it got.
bool OtherGets(ZEBReadWriteLock& lock, Mode mode) {
  bool got = false;
  std::thread([&] {
    got = lock.Acquire(mode, true);
    if (got) lock.Release();
  }).join();
  return got;
}

TEST(ReadWriteLockTest, GrantsByWhoHoldsItAndHow) {
  const std::tuple<Mode, Mode, bool, bool> kRows[] = {
      {Mode::kRead, Mode::kRead, true, true},
      {Mode::kRead, Mode::kWrite, false, false},
      {Mode::kWrite, Mode::kRead, true, false},
      {Mode::kWrite, Mode::kWrite, true, false},
  };
  for (const auto& [held, asked, sameThread, otherThread] : kRows) {
    ZEBReadWriteLock lock;
    ASSERT_TRUE(lock.Acquire(held));
    EXPECT_EQ(OtherGets(lock, asked), otherThread);
    const bool again = lock.Acquire(asked, true);
    EXPECT_EQ(again, sameThread);
    EXPECT_TRUE(!again || !lock.Release());
    EXPECT_TRUE(lock.Release());
    EXPECT_TRUE(OtherGets(lock, Mode::kWrite));
  }
}

TEST(ReadWriteLockTest, AWaitingWriterKeepsNewReadersOut) {
  ZEBReadWriteLock lock;
  lock.Acquire(Mode::kRead);
  std::thread writer([&] {
    lock.Acquire(Mode::kWrite);
    lock.Release();
  });
  while (OtherGets(lock, Mode::kRead))
    std::this_thread::yield();
  EXPECT_TRUE(lock.Acquire(Mode::kRead, true)) << "who reads already may go on reading";
  lock.Release();
  lock.Release();
  writer.join();
  EXPECT_TRUE(OtherGets(lock, Mode::kRead));
}

}  // namespace
}  // namespace morvex
