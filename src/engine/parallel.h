#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace Nox {

// The number of threads that make sense here for work that only computes; at least 1.
[[nodiscard]] unsigned WorkerCount();

// Calls work(0) to work(count - 1), each once, in any order, on up to `maxWorkers` threads, the caller's among
// them. Returns when all are done. The work must not throw.
void ParallelFor(std::size_t count, unsigned maxWorkers, const std::function<void(std::size_t)>& work);

// The loop below without its types: `make` runs on worker threads, `take` on the caller's, in order of index.
bool RunInOrder(std::size_t count, unsigned maxWorkers, std::size_t maxAhead,
                const std::function<void(std::size_t)>& make, const std::function<bool(std::size_t)>& take);

// Makes count results on up to `maxWorkers` threads and hands them over on the caller's thread in order of
// their index. At most `maxAhead` results (at least 1) are being made or waiting at any time, so memory stays
// bounded. When `take` answers false no further work is started, and the answer is false. Neither may throw.
template <typename Result>
bool ProduceInOrder(std::size_t count, unsigned maxWorkers, std::size_t maxAhead,
                    const std::function<Result(std::size_t)>& make,
                    const std::function<bool(std::size_t, Result&&)>& take) {
  if (maxAhead == 0) maxAhead = 1;
  std::vector<std::optional<Result>> slots(maxAhead < count ? maxAhead : count);
  return RunInOrder(
      count, maxWorkers, maxAhead, [&](std::size_t i) { slots[i % slots.size()].emplace(make(i)); },
      [&](std::size_t i) {
        Result result = std::move(*slots[i % slots.size()]);
        slots[i % slots.size()].reset();
        return take(i, std::move(result));
      });
}

}  // namespace Nox
