#include "engine/parallel.h"

#include <sched.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace Nox {
namespace {

// Starts up to `count` threads; fewer where the system gives no more.
std::vector<std::jthread> StartThreads(std::size_t count, const std::function<void()>& body) {
  std::vector<std::jthread> threads;
  threads.reserve(count);
  try {
    while (threads.size() < count)
      threads.emplace_back(body);
  } catch (const std::system_error&) {
    // The work is done by those that run.
  }
  return threads;
}

// The state that workers and taker of RunInOrder share.
class Line {
 public:
  Line(std::size_t count, std::size_t maxAhead) : count_(count), ready_(std::min(count, maxAhead)) {}

  // The next index to be made; none when all are given out or the taker has stopped.
  std::optional<std::size_t> Next() {
    std::unique_lock lock(mutex_);
    room_.wait(lock, [this] { return stopped_ || next_ == count_ || next_ < taken_ + ready_.size(); });
    if (stopped_ || next_ == count_) return std::nullopt;
    return next_++;
  }
  void SetReady(std::size_t index) {
    const std::lock_guard lock(mutex_);
    ready_[index % ready_.size()] = true;
    made_.notify_one();
  }
  void AwaitReady(std::size_t index) {
    std::unique_lock lock(mutex_);
    made_.wait(lock, [&] { return ready_[index % ready_.size()]; });
  }
  void SetTaken(std::size_t index) {
    const std::lock_guard lock(mutex_);
    ready_[index % ready_.size()] = false;
    taken_ = index + 1;
    room_.notify_all();
  }
  void Stop() {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    room_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable room_;
  std::condition_variable made_;
  const std::size_t count_;
  std::vector<bool> ready_;  // made and not yet taken, by index modulo its size
  std::size_t next_ = 0;
  std::size_t taken_ = 0;
  bool stopped_ = false;
};

}  // namespace

unsigned WorkerCount() {
  cpu_set_t allowed;
  if (sched_getaffinity(0, sizeof allowed, &allowed) == 0) {
    return static_cast<unsigned>(std::max(CPU_COUNT(&allowed), 1));
  }
  return std::max(std::thread::hardware_concurrency(), 1U);
}

void ParallelFor(std::size_t count, unsigned maxWorkers, const std::function<void(std::size_t)>& work) {
  std::atomic<std::size_t> next{0};
  const auto body = [&] {
    for (std::size_t i = next++; i < count; i = next++)
      work(i);
  };
  const std::size_t workers = std::min<std::size_t>(count, std::max(maxWorkers, 1U));
  const std::vector<std::jthread> helpers = StartThreads(workers > 0 ? workers - 1 : 0, body);
  body();
}

bool RunInOrder(std::size_t count, unsigned maxWorkers, std::size_t maxAhead,
                const std::function<void(std::size_t)>& make, const std::function<bool(std::size_t)>& take) {
  Line line(count, std::max<std::size_t>(maxAhead, 1));
  const std::size_t wanted = maxWorkers <= 1 || count <= 1 ? 0 : std::min<std::size_t>(maxWorkers, count);
  const std::vector<std::jthread> workers = StartThreads(wanted, [&] {
    while (const std::optional<std::size_t> index = line.Next()) {
      make(*index);
      line.SetReady(*index);
    }
  });
  for (std::size_t i = 0; i < count; ++i) {
    if (workers.empty()) {
      make(i);
    } else {
      line.AwaitReady(i);
    }
    if (!take(i)) {
      line.Stop();
      return false;
    }
    line.SetTaken(i);
  }
  return true;
}

}  // namespace Nox
