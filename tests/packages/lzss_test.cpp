#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "packages/lzss_bit_writer.h"
#include "packages/lzss_block.h"
#include "packages/lzss_compress.h"
#include "packages/lzss_encoder_tree.h"
#include "packages/lzss_format.h"
#include "packages/lzss_sink.h"
#include "packages/lzss_token_writer.h"
#include "tests/packages/lzss_plain_encoder.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes Coded(const Bytes& data, int level, std::size_t capacity) {
  Bytes coded(capacity);
  coded.resize(std::min(capacity, Nox::LzssCompressInto(coded, data, level)));
  return coded;
}

// The bytes, or one byte 0xEE for damage.
Bytes Decoded(const Bytes& stream, std::size_t room) {
  Bytes plain(room);
  const std::size_t size = Nox::LzssDecompressInto(plain, stream);
  if (size == Nox::Compressor::kDamaged) return {0xEE};
  plain.resize(size);
  return plain;
}

// Streams of known bytes, listed in vectors/manifest.tsv.
struct Golden {
  std::string name, inputName, codedName;
  int level = 0;
  std::size_t inputSize = 0, codedSize = 0, capacity = 0;
  Bytes input, coded;
};

Bytes FileBytes(const std::string& name) {
  std::ifstream file(std::string(LZSS_VECTORS "/") + name, std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(file), {});
}

std::vector<Golden> GoldenStreams() {
  std::vector<Golden> streams;
  std::ifstream manifest(LZSS_VECTORS "/manifest.tsv");
  for (std::string line; std::getline(manifest, line);) {
    if (line.starts_with('#')) continue;
    Golden g;
    std::istringstream(line) >> g.name >> g.level >> g.inputName >> g.inputSize >> g.codedName >>
        g.codedSize >> g.capacity;
    g.input = g.inputName == "one300000.in" ? Bytes(300000, 0xa5) : FileBytes(g.inputName);
    g.coded = FileBytes(g.codedName);
    streams.push_back(std::move(g));
  }
  return streams;
}

// Strings, runs and repeats from near and far, of few or many letters: all that the match finder tells apart.
Bytes Structured(unsigned seed, std::size_t size) {
  std::mt19937 random(seed);
  const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
  const std::size_t letters = below(2) != 0 ? 1 + below(6) : 256;
  Bytes data{0};
  while (data.size() < size) {
    const auto letter = [&] { return static_cast<std::uint8_t>(below(letters)); };
    const std::size_t far = 1 + below(std::min<std::size_t>(data.size(), below(2) != 0 ? 40 : 20000));
    switch (below(4)) {
      case 0:
        std::generate_n(std::back_inserter(data), below(200), letter);
        break;
      case 1:
        data.insert(data.end(), below(below(20) != 0 ? 300 : 3000), letter());
        break;
      case 2:
        for (std::size_t count = below(600); count != 0; --count)
          data.push_back(data[data.size() - far]);
        break;
      default:
        std::generate_n(std::back_inserter(data), below(400),
                        [&] { return below(50) != 0 ? std::uint8_t{0} : letter(); });
    }
  }
  data.resize(size);
  return data;
}

// Sends `data` through a stream operation in pieces of uneven size.
template <typename Operation>
bool InPieces(const Bytes& data, std::size_t largest, Operation operation) {
  std::mt19937 random(7);
  for (std::size_t at = 0, count = 0; at < data.size(); at += count) {
    count = std::min<std::size_t>(data.size() - at, 1 + random() % largest);
    if (!operation(data.data() + at, count)) return false;
  }
  return true;
}

Bytes StreamCoded(const Bytes& data, int level, std::size_t piece) {
  Bytes coded;
  Nox::LZSSCompress lzss;
  const auto append = [&coded](auto bytes) {
    return coded.insert(coded.end(), bytes.begin(), bytes.end()), true;
  };
  EXPECT_TRUE(lzss.InitStreamCompress(append, level));
  EXPECT_TRUE(
      InPieces(data, piece, [&](auto* at, std::size_t count) { return lzss.StreamCompress(at, count); }));
  EXPECT_TRUE(lzss.DoneStreamCompress());
  return coded;
}

bool StreamDecoded(const Bytes& stream, std::size_t piece, Bytes& plain) {
  plain.clear();
  Nox::LZSSCompress lzss;
  lzss.InitStreamDecompress(
      [&plain](auto bytes) { return plain.insert(plain.end(), bytes.begin(), bytes.end()), true; });
  return InPieces(stream, piece,
                  [&](auto* at, std::size_t count) { return lzss.StreamDecompress(at, count); }) &&
         lzss.DoneStreamDecompress();
}

TEST(Lzss, GivesAndReadsGoldenStreams) {
  const auto streams = GoldenStreams();
  ASSERT_EQ(streams.size(), 58U);
  for (const Golden& g : streams) {
    SCOPED_TRACE(g.name);
    ASSERT_EQ(g.input.size(), g.inputSize);
    ASSERT_EQ(g.coded.size(), g.codedSize);
    EXPECT_EQ(Coded(g.input, g.level, g.capacity), g.coded);
    EXPECT_EQ(Decoded(g.coded, g.inputSize), g.input);
    Bytes plain;
    EXPECT_TRUE(Nox::LzssDecompress(g.coded, g.inputSize, plain));
    EXPECT_EQ(plain, g.input);
    EXPECT_FALSE(Nox::LzssDecompress(g.coded, g.inputSize + 1, plain));
    EXPECT_FALSE(Nox::LzssDecompress(g.coded, g.inputSize - 1, plain));
    EXPECT_TRUE(StreamDecoded(g.coded, 700, plain));
    EXPECT_EQ(plain, g.input);
  }
}

TEST(Lzss, RefusesEveryTruncation) {
  for (const Golden& g : GoldenStreams()) {
    // Of the long ones a few places, odd and even.
    for (std::size_t size = 0; size<g.codedSize; size += g.codedSize> 2000 ? 1237 : 1) {
      Bytes plain;
      const Bytes cut(g.coded.begin(), g.coded.begin() + static_cast<std::ptrdiff_t>(size));
      EXPECT_FALSE(Nox::LzssDecompress(cut, g.inputSize, plain)) << g.name << " cut to " << size;
    }
  }
}

TEST(Lzss, FinderAgreesWithPlainSearch) {
  for (unsigned seed = 1; seed <= 24; ++seed) {
    const int level = seed % 2 != 0 ? 9 : 1 + static_cast<int>(seed) % 8;
    const Bytes data = Structured(seed, 20000 + 5000 * seed);
    Bytes expected(2 * data.size() + 100);
    expected[0] = Nox::LzssHeader(Nox::kLzssLevels[static_cast<std::size_t>(level)].windowId, level);
    Nox::LzssSink sink(expected.data() + 1, expected.size() - 1);
    const auto writer = Nox::MakeLzssTokenWriter(level, Nox::LzssHeaderWindowId(expected[0]), sink);
    LzssPlainEncoder(level, data, *writer).Run();
    expected.resize(1 + sink.Held());

    EXPECT_EQ(Coded(data, level, 2 * data.size()), expected) << "seed " << seed;
    EXPECT_EQ(StreamCoded(data, level, seed % 3 != 0 ? 900 : 60000), expected) << "seed " << seed;
    Bytes plain;
    EXPECT_TRUE(StreamDecoded(expected, 900, plain));
    EXPECT_EQ(plain, data);
    EXPECT_EQ(Decoded(expected, data.size()), data);
  }
}

// Bytes in which no three follow one another twice, so that no match is in them.
Bytes WithoutMatches(std::size_t size) {
  std::mt19937 random(1);
  std::set<std::vector<std::uint8_t>> seen;
  Bytes data{0, 1};
  while (data.size() < size) {
    data.push_back(static_cast<std::uint8_t>(random()));
    if (!seen.insert({data.end() - 3, data.end()}).second) data.pop_back();
  }
  return data;
}

// A group of flags is fullest if it begins with the end of a run and ends with a match.
TEST(Lzss, FullestGroupHasRoom) {
  Bytes data(9, 0xA5);  // a literal and a match, three flags in all
  const Bytes runs = WithoutMatches(30 * 258);
  data.insert(data.end(), runs.begin(), runs.end());
  data.insert(data.end(), runs.end() - 300, runs.end());
  EXPECT_EQ(Decoded(Coded(data, 6, data.size() + 1), data.size()), data);
}

TEST(Lzss, ChoosesFormBySizeLevelAndCapacity) {
  const Bytes a(10000, 'a');
  // Size, level, capacity and header; with a header of -1 nothing fits, and the result is the size.
  const std::tuple<std::size_t, int, std::size_t, int> cases[] = {
      {0, 9, 0, -1},         {0, 9, 1, 0x00},       {6, 9, 7, 0x00},      {7, 9, 8, 0x06},
      {255, 9, 256, 0x06},   {256, 9, 99, 0x19},    {4096, 7, 99, 0x17},  {4097, 9, 99, 0x29},
      {256, 1, 99, 0x01},    {257, 1, 99, 0x11},    {4096, 4, 999, 0x14}, {9000, -1, 999, 0x29},
      {9000, 10, 999, 0x29}, {9000, 0, 9001, 0x00}, {9000, 9, 5, -1},     {9000, 0, 9000, -1},
  };
  for (const auto& [count, level, capacity, header] : cases) {
    SCOPED_TRACE(std::to_string(count) + " at " + std::to_string(level));
    Bytes coded(capacity);
    const std::size_t size = Nox::LzssCompressInto(coded, {a.data(), count}, level);
    if (header < 0) {
      EXPECT_EQ(size, count);
      continue;
    }
    ASSERT_LE(size, capacity);
    EXPECT_EQ(coded[0], header);
    // A form that just fills the capacity is kept.
    EXPECT_EQ(Coded({a.begin(), a.begin() + static_cast<std::ptrdiff_t>(count)}, level, size)[0], header);
  }
}

TEST(Lzss, RefusesBrokenStreams) {
  // The result is {0xEE} for damage.
  const std::tuple<const char*, Bytes, Bytes> cases[] = {
      {"nothing", {}, {0xEE}},
      {"stored", {0x00, 1, 2}, {1, 2}},
      {"stored, too long", {0x00, 1, 2, 3, 4, 5, 6, 7, 8, 9}, {0xEE}},
      {"window id 3", {0x36, 0, 0, 0, 0, 'a'}, {0xEE}},
      {"level 10", {0x2A, 0, 0, 0, 0, 'a'}, {0xEE}},
      {"level 15", {0x0F, 0, 0, 0, 0, 'a'}, {0xEE}},
      {"no token", {0x11}, {}},
      {"flags cut", {0x11, 0, 0, 0}, {0xEE}},
      {"wide literal and match", {0x11, 4, 0, 0, 0, 'a', 0x01, 0x00}, {'a', 'a', 'a', 'a'}},
      {"wide, offset 0", {0x11, 4, 0, 0, 0, 'a', 0x00, 0x00}, {0xEE}},
      {"wide, before the start", {0x11, 4, 0, 0, 0, 'a', 0x02, 0x00}, {0xEE}},
      {"wide, word cut", {0x11, 4, 0, 0, 0, 'a', 0x01}, {0xEE}},
      {"wide, length byte cut", {0x11, 4, 0, 0, 0, 'a', 0x01, 0xF0}, {0xEE}},
      {"wide, too long", {0x11, 4, 0, 0, 0, 'a', 0x01, 0xF0, 6}, {0xEE}},
      {"run", {0x11, 2, 0, 0, 0, 0, 'a', 'b', 'c'}, {'a', 'b', 'c'}},
      {"run cut", {0x11, 2, 0, 0, 0, 1, 'a', 'b', 'c'}, {0xEE}},
      {"narrow match", {0x06, 2, 0, 0, 0, 'a', 1}, {'a', 'a', 'a', 'a'}},
      {"narrow, offset 0", {0x06, 2, 0, 0, 0, 'a', 0}, {0xEE}},
      {"narrow, before the start", {0x06, 2, 0, 0, 0, 'a', 2}, {0xEE}},
      {"narrow, offset cut", {0x06, 30, 0, 0, 0, 'a', 1}, {0xEE}},
      {"Huffman, no end mark", {0x29, 0, 0, 0, 0}, {0xEE}},
  };
  for (const auto& [what, stream, expected] : cases) {
    EXPECT_EQ(Decoded(stream, 8), expected) << what;
    Bytes plain;
    EXPECT_EQ(Nox::LzssDecompress(stream, expected.size(), plain), expected != Bytes{0xEE}) << what;
  }
}

// Writes single symbols of the Huffman coding, so as to make streams that the encoder doesn't.
Bytes Symbols(std::uint8_t header, const std::vector<unsigned>& symbols) {
  Bytes stream(64);
  Nox::LzssSink sink(stream.data(), stream.size());
  sink.Put8(header);
  Nox::LzssBitWriter bits(sink);
  Nox::LzssEncoderTree tree(Nox::kLzssMainSymbols);
  for (const unsigned symbol : symbols) {
    const Nox::LzssCode code = tree.Encode(symbol);
    bits.Put(code.bits, code.count);
    if (symbol >= Nox::kLzssFirstLengthCode && symbol < Nox::kLzssEndMark) bits.Put(0, 14);  // offset 0
  }
  bits.Finish();
  stream.resize(sink.Held());
  return stream;
}

TEST(Lzss, RefusesSymbolsThatNoEncoderWrites) {
  EXPECT_EQ(Decoded(Symbols(0x29, {'a', 'b', 272}), 2), (Bytes{'a', 'b'}));
  EXPECT_EQ(Decoded(Symbols(0x09, {'a', 'b', 272}), 2), (Bytes{'a', 'b'}));
  EXPECT_EQ(Decoded(Symbols(0x29, {'a', 'b', 273}), 2), Bytes{0xEE});
  EXPECT_EQ(Decoded(Symbols(0x29, {'a', 'b', 'c', 272}), 2), Bytes{0xEE});
  EXPECT_EQ(Decoded(Symbols(0x29, {'a', 256, 272}), 9), Bytes{0xEE});
}

TEST(Lzss, TakesNoMemoryThatAStreamCannotFill) {
  const Bytes tiny{0x29, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  Bytes plain;
  EXPECT_FALSE(Nox::LzssDecompress(tiny, 0xFFFFFFFF, plain));
  EXPECT_LT(plain.capacity(), 10000U);
  // A bigger one that says nothing of use: memory follows the output, not the promise.
  Bytes noise(4'000'000, 0);
  noise[0] = 0x11;
  EXPECT_FALSE(Nox::LzssDecompress(noise, 0xFFFFFFFF, plain));
}

TEST(Lzss, StreamsStopWhenTheirOutputIsRefused) {
  const Bytes data = Structured(5, 90000);
  const Bytes coded = Coded(data, 9, data.size() + 1);
  const auto refuse = [](auto) { return false; };
  Nox::LZSSCompress lzss;
  lzss.InitStreamCompress(refuse, 9);
  lzss.StreamCompress(data.data(), data.size());
  EXPECT_FALSE(lzss.DoneStreamCompress());
  lzss.InitStreamDecompress(refuse);
  EXPECT_FALSE(lzss.StreamDecompress(coded.data(), coded.size()));
  EXPECT_FALSE(lzss.DoneStreamDecompress());
  EXPECT_FALSE(lzss.StreamCompress(data.data(), 1));
}

}  // namespace
