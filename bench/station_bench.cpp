// A list of the download station of 1,000,000 lines, taken over into the catalogue: into an empty one, into one that
// knows every asset, and where the view is sorted already. `peak_MB` is the most memory the process ever had.

#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <zlib.h>

#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "database/catalogue/asset_cache.h"
#include "net/station/asset_list.h"

namespace morvex {
namespace {

namespace fs = std::filesystem;

constexpr int kLines = 1'000'000;

// The list as a file, removed at the end.
class ListFile {
 public:
  ListFile() : path_(fs::temp_directory_path() / "morvex-bench-list.gz") {
    std::mt19937 random(1);
    const char* const kKinds[] = {"scenery", "traincar", "map", "track", "groundtexture"};
    const gzFile file = gzopen(path_.c_str(), "wb6");
    if (file == nullptr) std::abort();
    for (int i = 0; i < kLines; ++i) {
      const std::string line = "<kuid2:" + std::to_string(100 + random() % 5000) + ":" + std::to_string(i) +
                               ":1> " + kKinds[random() % 5] + " 2." + std::to_string(random() % 10) +
                               " Wagon type " + std::to_string(random() % 100000) + " of line " +
                               std::to_string(i) + "\n";
      if (gzwrite(file, line.data(), static_cast<unsigned>(line.size())) <= 0) std::abort();
    }
    gzclose(file);
  }
  ~ListFile() { fs::remove(path_); }
  std::string Path() const { return path_; }

 private:
  const fs::path path_;
};

const std::string& List() {
  static const ListFile file;
  static const std::string path = file.Path();
  return path;
}

void Merge(benchmark::State& state) {
  if (MergeAssetList(List()).merged != kLines) state.SkipWithError("not all lines were taken over");
}

void NotePeak(benchmark::State& state) {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["peak_MB"] = static_cast<double>(usage.ru_maxrss) / 1024;
  state.counters["lines/s"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * kLines, benchmark::Counter::kIsRate);
}

// The peer: the same file inflated and cut into lines.
void BM_ReadLines(benchmark::State& state) {
  List();
  for (auto _ : state) {
    std::string block(16384, '\0');
    const gzFile file = gzopen(List().c_str(), "rb");
    std::size_t lines = 0;
    for (int got = 1; got > 0;) {
      got = gzread(file, block.data(), static_cast<unsigned>(block.size()));
      for (int i = 0; i < got; ++i)
        lines += block[static_cast<std::size_t>(i)] == '\n' ? 1U : 0U;
    }
    gzclose(file);
    benchmark::DoNotOptimize(lines);
  }
}

void BM_MergeIntoEmpty(benchmark::State& state) {
  List();
  for (auto _ : state) {
    state.PauseTiming();
    ZEBAssetCache::Instance().Clear();
    state.ResumeTiming();
    Merge(state);
  }
  NotePeak(state);
}

void BM_MergeIntoSorted(benchmark::State& state) {
  List();
  for (auto _ : state) {
    state.PauseTiming();
    ZEBAssetCache::Instance().Clear();
    ZEBAssetCache::Instance().View();
    state.ResumeTiming();
    Merge(state);
  }
  NotePeak(state);
}

void BM_MergeAgain(benchmark::State& state) {
  ZEBAssetCache::Instance().Clear();
  Merge(state);
  for (auto _ : state)
    Merge(state);
  NotePeak(state);
}

BENCHMARK(BM_ReadLines)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MergeIntoEmpty)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MergeAgain)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MergeIntoSorted)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace morvex
