#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

#include "tagdata/chunk_walker.h"
#include "tagdata/chunk_writer.h"

// The check of a chunk file of many small tags, beside a plain copy of the same bytes.
namespace {

// Records of ten tags, as the tables of packages and notes hold them.
const std::string& Image() {
  static const std::string image = [] {
    morvex::ChunkWriter writer;
    for (int i = 0; i < 50000; ++i) {
      writer.BeginContainer("record" + std::to_string(i));
      for (int tag = 0; tag < 5; ++tag)
        writer.Int("number-" + std::to_string(tag), i * tag);
      for (int tag = 0; tag < 5; ++tag)
        writer.String("text-" + std::to_string(tag), std::to_string(i * 37));
      writer.EndContainer();
    }
    return writer.FileImage();
  }();
  return image;
}

void BM_Validate(benchmark::State& state) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(Image().data());
  for (auto _ : state) {
    uint32_t version = 0;
    benchmark::DoNotOptimize(morvex::ChumpBody({bytes, Image().size()}, version).data());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Image().size()));
}
BENCHMARK(BM_Validate);

void BM_Memcpy(benchmark::State& state) {
  std::vector<char> copy(Image().size());
  for (auto _ : state) {
    std::memcpy(copy.data(), Image().data(), Image().size());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Image().size()));
}
BENCHMARK(BM_Memcpy);

}  // namespace
