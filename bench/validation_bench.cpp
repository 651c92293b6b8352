#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"

// Judging a configuration of 2 KB against the shipped definitions, without files, and what it costs to have
// the definitions at all.
namespace {

using namespace QELLib;

void StartServices() {
  if (DataManager::Get() != nullptr) return;
  ErrorHandler::Create();
  DataManager::Create(MORVEX_QELDATA);
  DataManager::Get()->LoadDefinitions(false);
}

// A wagon's size: common tags, a mesh table of ten parts and some queues.
std::string Config() {
  std::string text =
      "kuid <kuid:100:200>\nkind \"scenery\"\nusername \"Bench\"\nmorvex-build 2.9\ncategory-class \"BD\"\n"
      "category-region \"DE;AT\"\ncategory-era \"1950s\"\ndescription \"A building of the benchmark\"\n"
      "license \"free\"\nauthor \"us\"\nmesh-table\n{\n";
  for (int i = 0; i < 10; ++i) {
    const std::string number = std::to_string(i);
    text += "part" + number + "\n{\nmesh \"part" + number +
            "/body.txt\"\nauto-create 1\nopacity 0.5\nanimation-loop-speed 1.0\neffects\n{\n0\n{\nkind "
            "\"name\"\n" +
            "att \"a.name\"\nfontsize 0.2\nfontcolor 30,30,30\nname \"name\"\n}\n}\n}\n";
  }
  return text + "}\n";
}

void BM_ValidateConfig(benchmark::State& state) {
  StartServices();
  const std::string text = Config();
  size_t records = 0;
  for (auto _ : state) {
    ErrorHandler::Get()->Clear();
    morvex::TagContainer config, out;
    morvex::ParseSoupText(config, text, true);
    Container root;
    if (!root.Load(config)) std::abort();
    root.Export(out);
    records = ErrorHandler::Get()->GetRecords().size();
  }
  state.counters["bytes"] = static_cast<double>(text.size());
  state.counters["records"] = static_cast<double>(records);
}
BENCHMARK(BM_ValidateConfig)->Unit(benchmark::kMicrosecond);

void BM_LoadDefinitions(benchmark::State& state) {
  StartServices();
  for (auto _ : state)
    DataManager::Get()->LoadDefinitions(true);
}
BENCHMARK(BM_LoadDefinitions)->Unit(benchmark::kMicrosecond);

// All that a run pays that never validates. Nothing is ended here, since that would write to the shipped data.
void BM_Start(benchmark::State& state) {
  ErrorHandler::Create();
  for (auto _ : state)
    DataManager::Create(MORVEX_QELDATA);
}
BENCHMARK(BM_Start)->Unit(benchmark::kMicrosecond);

}  // namespace
