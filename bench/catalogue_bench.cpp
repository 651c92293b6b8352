// The index at 100,000 and 1,000,000 records: what a run of the tool pays for it.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/asset_query.h"
#include "database/catalogue/asset_status.h"
#include "database/catalogue/database.h"
#include "database/catalogue/folder_setup.h"
#include "database/catalogue/index_reader.h"
#include "database/catalogue/index_writer.h"
#include "engine/file.h"

namespace morvex {
namespace {

namespace fs = std::filesystem;

// An installation below the system's temporary folder with an index of so many records, each with three
// dependencies.
class Installation {
 public:
  explicit Installation(int records)
      : root_(fs::temp_directory_path() / ("morvex-bench-" + std::to_string(records))) {
    fs::remove_all(root_);
    fs::create_directories(root_ / "cache");
    Fill(records);
    if (!WriteIndex(Index(), cache_)) std::abort();
    cache_.Clear();
  }
  ~Installation() {
    cache_.Clear();
    fs::remove_all(root_);
  }
  std::string Index() const { return root_ / "assets.tdx"; }
  std::string Root() const { return root_; }

  void Load() {
    cache_.Clear();
    if (!ReadIndex(Index(), cache_)) std::abort();
  }

 private:
  void Fill(int records) {
    std::mt19937 random(1);
    for (int i = 0; i < records; ++i) {
      ZEBAssetInfo& record = *cache_.Create(KUID(100 + i % 97, i, 0));
      const std::string name =
          "Wagon type " + std::to_string(random() % 100000) + " of line " + std::to_string(i);
      const std::string path = "local/content " + std::to_string(i);
      AssetTexts texts = record.Texts();
      texts[static_cast<size_t>(AssetText::kCategoryClass)] = i % 10 == 0 ? "TR;TV;LOCO" : "SY;SCEN";
      texts[static_cast<size_t>(AssetText::kUsername)] = name;
      texts[static_cast<size_t>(AssetText::kRegionList)] = "DE;AT";
      texts[static_cast<size_t>(AssetText::kKeywords)] = "wagon;red;long";
      texts[static_cast<size_t>(AssetText::kLocalPath)] = path;
      record.SetTexts(texts);
      std::vector<KUID> dependencies;
      for (int k = 0; k < 3; ++k)
        dependencies.push_back(KUID(100, static_cast<int>(random() % static_cast<unsigned>(records)), 1));
      cache_.dependencies.Set(record.Kuid(), dependencies);
    }
  }

  const fs::path root_;
  ZEBAssetCache& cache_ = ZEBAssetCache::Instance();
};

Installation& With(int64_t records) {
  ZEBAssetCache::Instance();  // made first, so that it outlives the installation
  static std::unique_ptr<Installation> installation;
  static int64_t made = 0;
  if (made != records) {
    installation.reset();
    installation = std::make_unique<Installation>(static_cast<int>(records));
    made = records;
  }
  return *installation;
}

// The peer: the same file read and written, with one flush.
void BM_ReadAndWriteFile(benchmark::State& state) {
  Installation& place = With(state.range(0));
  for (auto _ : state) {
    std::ifstream in(place.Index(), std::ios::binary);
    std::string bytes(fs::file_size(place.Index()), '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    Nox::File out;
    if (!out.Open(place.Root() + "/copy", Nox::OpenMode::kCreate)) std::abort();
    benchmark::DoNotOptimize(out.Write(bytes.data(), bytes.size()));
    benchmark::DoNotOptimize(out.Sync());
  }
}

void BM_LoadIndex(benchmark::State& state) {
  Installation& place = With(state.range(0));
  for (auto _ : state)
    place.Load();
}

void BM_WriteIndex(benchmark::State& state) {
  Installation& place = With(state.range(0));
  place.Load();
  for (auto _ : state)
    benchmark::DoNotOptimize(WriteIndex(place.Root() + "/copy", ZEBAssetCache::Instance()));
}

// Start, one question, shutdown: what `status` does.
void BM_StatusRun(benchmark::State& state) {
  Installation& place = With(state.range(0));
  ZEBAssetCache::Instance().Clear();
  for (auto _ : state) {
    ZEBPrepareFolders(place.Root());
    ZEBStartupSettings settings;
    settings.root = place.Root();
    ZEBInit(settings);
    ZEBAssetStatus status;
    benchmark::DoNotOptimize(ZEBGetAssetStatus(KUID(100, 97, 0), status));
    benchmark::DoNotOptimize(ZEBHasMissingDependencies(KUID(100, 97, 0), false));
    ZEBShutdown();
    ZEBReleaseFolders();
  }
}

void BM_SortedView(benchmark::State& state) {
  Installation& place = With(state.range(0));
  place.Load();
  SortedView view;
  for (auto _ : state)
    view.Build(ZEBAssetCache::Instance().records);
}

// Records come one by one into a view that stays sorted: the cost of one must not depend on how many there are.
void BM_AddToSortedView(benchmark::State& state) {
  Installation& place = With(state.range(0));
  place.Load();
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  cache.View();
  int32_t content = 0;
  for (auto _ : state) {
    cache.Create(KUID(99, ++content, 0));
    cache.SortView();
  }
}

void BM_Search(benchmark::State& state) {
  Installation& place = With(state.range(0));
  place.Load();
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  cache.View();
  for (auto _ : state) {
    size_t found = 0;
    cache.View().ForEach(
        [&](const ZEBAssetInfo& record) { found += record.CategoryClass() == "TR;TV;LOCO"; });
    benchmark::DoNotOptimize(found);
  }
}

BENCHMARK(BM_ReadAndWriteFile)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadIndex)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteIndex)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StatusRun)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortedView)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Search)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddToSortedView)->Arg(100)->Arg(100000)->Iterations(2000);
BENCHMARK(BM_ReadAndWriteFile)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StatusRun)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace morvex
