// The LZSS codec at level 9 beside zlib (compress at level 9, inflate), on one thread. Each kind of data is
// made here and is the same on every run. "ratio" in the counters is the coded size over the plain size.

#include <benchmark/benchmark.h>
#include <zlib.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "packages/lzss_block.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kSize = 2'000'000;

class Maker {
 public:
  unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
  // Small numbers often, large ones rarely.
  unsigned Skewed(unsigned limit) {
    const double u = static_cast<double>(random_()) / 4294967296.0;
    return static_cast<unsigned>(std::pow(static_cast<double>(limit), u)) - 1;
  }
  void Add(const std::string& text) { bytes_.insert(bytes_.end(), text.begin(), text.end()); }
  void Add(unsigned byte) { bytes_.push_back(static_cast<std::uint8_t>(byte)); }
  void Add32(std::uint32_t value) {
    for (int i = 0; i < 4; ++i)
      Add(value >> 8 * i & 255);
  }
  std::size_t Size() const { return bytes_.size(); }
  const Bytes& Get() const { return bytes_; }
  Bytes Take() {
    bytes_.resize(kSize);
    return std::move(bytes_);
  }

 private:
  std::mt19937 random_{20240229};
  Bytes bytes_;
};

std::vector<std::string> Words(Maker& m, std::size_t count) {
  constexpr std::array<const char*, 24> kSyllables{"an", "be",  "con", "de", "er",  "for", "ing", "in",
                                                   "la", "men", "ne",  "on", "pre", "re",  "ri",  "so",
                                                   "st", "ta",  "the", "ti", "to",  "un",  "ver", "wa"};
  std::vector<std::string> words(count);
  for (std::string& word : words) {
    for (unsigned i = 1 + m.Below(4); i > 0; --i)
      word += kSyllables[m.Below(kSyllables.size())];
  }
  return words;
}

Bytes Text() {
  Maker m;
  const auto words = Words(m, 6000);
  while (m.Size() < kSize) {
    m.Add(words[m.Skewed(6000)]);
    const unsigned end = m.Below(14);
    m.Add(end == 0 ? std::string(". ") : end == 1 ? std::string(", ") : std::string(" "));
    if (m.Below(90) == 0) m.Add("\n");
  }
  return m.Take();
}

Bytes Config() {
  Maker m;
  const auto words = Words(m, 300);
  while (m.Size() < kSize) {
    m.Add("  " + words[m.Skewed(40)] + "-" + words[m.Skewed(20)] + "\n  {\n");
    for (unsigned i = 1 + m.Below(9); i > 0; --i) {
      m.Add("    " + words[m.Skewed(80)] + std::string(4 + m.Below(12), ' '));
      switch (m.Below(4)) {
        case 0:
          m.Add("<kuid:" + std::to_string(m.Below(200000)) + ":" + std::to_string(m.Below(99999)) + ">\n");
          break;
        case 1:
          m.Add("\"" + words[m.Skewed(300)] + " " + words[m.Skewed(300)] + "\"\n");
          break;
        case 2:
          m.Add(std::to_string(m.Below(9)) + "." + std::to_string(m.Below(999)) + "\n");
          break;
        default:
          m.Add(std::to_string(m.Below(3)) + "\n");
      }
    }
    m.Add("  }\n");
  }
  return m.Take();
}

// Vertices of three coordinates, a normal and two texture coordinates, and now and then a list of faces.
Bytes Mesh() {
  Maker m;
  float angle = 0;
  while (m.Size() < kSize) {
    for (int i = 0; i < 300; ++i) {
      angle += 0.01F;
      const std::array<float, 8> vertex{std::sin(angle) * 4,
                                        std::cos(angle) * 4,
                                        static_cast<float>(i / 16) * 0.25F,
                                        std::sin(angle),
                                        std::cos(angle),
                                        0,
                                        static_cast<float>(m.Below(64)) / 64,
                                        static_cast<float>(i % 16) / 16};
      for (const float value : vertex)
        m.Add32(std::bit_cast<std::uint32_t>(value));
    }
    for (unsigned i = 0; i < 500; ++i) {
      m.Add32(i | (i + 1) << 16);
      m.Add32((i + 2) | (i + m.Below(4)) << 16);
    }
  }
  return m.Take();
}

Bytes Image() {
  Maker m;
  for (unsigned y = 0; m.Size() < kSize; ++y) {
    for (unsigned x = 0; x < 512; ++x) {
      const unsigned noise = x / 64 % 2 == 0 ? m.Below(4) : 0;
      m.Add((x / 3 + y + noise) & 255);
      m.Add((y / 2 + noise) & 255);
      m.Add((x * y / 512) & 255);
      m.Add(255U);
    }
  }
  return m.Take();
}

Bytes Letters(unsigned letters) {
  Maker m;
  while (m.Size() < kSize)
    m.Add('a' + m.Below(letters));
  return m.Take();
}
Bytes TwoLetters() {
  return Letters(2);
}
Bytes FourLetters() {
  return Letters(4);
}
Bytes Random() {
  return Letters(256);
}

Bytes Sparse() {
  Maker m;
  while (m.Size() < kSize)
    m.Add(m.Below(25) == 0 ? m.Below(256) : 0);
  return m.Take();
}

Bytes Runs() {
  Maker m;
  while (m.Size() < kSize) {
    const unsigned byte = m.Below(6);
    for (unsigned i = 1 + m.Skewed(600); i > 0; --i)
      m.Add(byte);
  }
  return m.Take();
}

Bytes LzssCoded(const Bytes& data) {
  Bytes coded(data.size() + 1);
  coded.resize(Nox::LzssCompressInto(coded, data, 9));
  return coded;
}

Bytes ZlibCoded(const Bytes& data) {
  uLongf size = compressBound(data.size());
  Bytes coded(size);
  if (compress2(coded.data(), &size, data.data(), data.size(), 9) != Z_OK) std::abort();
  coded.resize(size);
  return coded;
}

void Report(benchmark::State& state, const Bytes& data, const Bytes& coded) {
  state.SetBytesProcessed(static_cast<std::int64_t>(data.size()) * state.iterations());
  state.counters["ratio"] = static_cast<double>(coded.size()) / static_cast<double>(data.size());
}

using MakeData = Bytes (*)();

void LzssCompress9(benchmark::State& state, MakeData make) {
  const Bytes data = make();
  Bytes coded(data.size() + 1);
  for (auto _ : state)
    benchmark::DoNotOptimize(Nox::LzssCompressInto(coded, data, 9));
  Report(state, data, LzssCoded(data));
}

void ZlibCompress9(benchmark::State& state, MakeData make) {
  const Bytes data = make();
  Bytes coded(compressBound(data.size()));
  for (auto _ : state) {
    uLongf size = coded.size();
    benchmark::DoNotOptimize(compress2(coded.data(), &size, data.data(), data.size(), 9));
  }
  Report(state, data, ZlibCoded(data));
}

void LzssDecompress9(benchmark::State& state, MakeData make) {
  const Bytes data = make();
  const Bytes coded = LzssCoded(data);
  Bytes plain;
  for (auto _ : state) {
    if (!Nox::LzssDecompress(coded, data.size(), plain)) state.SkipWithError("damaged");
  }
  Report(state, data, coded);
}

void ZlibInflate(benchmark::State& state, MakeData make) {
  const Bytes data = make();
  const Bytes coded = ZlibCoded(data);
  for (auto _ : state) {
    Bytes plain(data.size());
    uLongf size = plain.size();
    if (uncompress(plain.data(), &size, coded.data(), coded.size()) != Z_OK) state.SkipWithError("damaged");
  }
  Report(state, data, coded);
}

}  // namespace

#define LZSS_BENCH(Data)                                                          \
  BENCHMARK_CAPTURE(LzssCompress9, Data, &Data)->Unit(benchmark::kMillisecond);   \
  BENCHMARK_CAPTURE(ZlibCompress9, Data, &Data)->Unit(benchmark::kMillisecond);   \
  BENCHMARK_CAPTURE(LzssDecompress9, Data, &Data)->Unit(benchmark::kMillisecond); \
  BENCHMARK_CAPTURE(ZlibInflate, Data, &Data)->Unit(benchmark::kMillisecond)

LZSS_BENCH(Text);
LZSS_BENCH(Config);
LZSS_BENCH(Mesh);
LZSS_BENCH(Image);
LZSS_BENCH(TwoLetters);
LZSS_BENCH(FourLetters);
LZSS_BENCH(Sparse);
LZSS_BENCH(Runs);
LZSS_BENCH(Random);
