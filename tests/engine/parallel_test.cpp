#include "engine/parallel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>

namespace Nox {
namespace {

TEST(Parallel, ForVisitsEachIndexOnce) {
  for (const unsigned workers : {0U, 1U, 4U}) {
    std::vector<std::atomic<int>> visits(1000);
    ParallelFor(visits.size(), workers, [&](std::size_t i) { ++visits[i]; });
    for (const auto& count : visits)
      ASSERT_EQ(count, 1);
  }
  ParallelFor(0, 4, [](std::size_t) { FAIL(); });
  EXPECT_GE(WorkerCount(), 1U);
}

TEST(Parallel, ResultsComeInOrderAndStayBounded) {
  for (const unsigned workers : {1U, 2U, 8U}) {
    for (const std::size_t ahead : {0U, 1U, 3U, 2000U}) {
      std::atomic<std::size_t> alive = 0;
      std::size_t next = 0;
      const std::function<std::string(std::size_t)> make = [&](std::size_t i) {
        EXPECT_LE(++alive, std::max<std::size_t>(ahead, 1));
        return std::to_string(i);
      };
      const std::function<bool(std::size_t, std::string &&)> take = [&](std::size_t i, std::string&& text) {
        EXPECT_EQ(text, std::to_string(next++));
        --alive;
        return i < 500;
      };
      EXPECT_TRUE(ProduceInOrder(500, workers, ahead, make, take));
      EXPECT_EQ(next, 500U);
    }
  }
}

TEST(Parallel, StopsWhenTheTakerDoes) {
  std::atomic<std::size_t> made = 0;
  const std::function<int(std::size_t)> make = [&](std::size_t) { return static_cast<int>(++made); };
  const std::function<bool(std::size_t, int&&)> take = [](std::size_t i, int&&) { return i < 10; };
  EXPECT_FALSE(ProduceInOrder(100000, 2, 4, make, take));
  EXPECT_LE(made, 14U);
}

}  // namespace
}  // namespace Nox
