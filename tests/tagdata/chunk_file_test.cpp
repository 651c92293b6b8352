#include <gtest/gtest.h>

#include <functional>
#include <tuple>

#include "tagdata/binary_file.h"
#include "tagdata/buffer_stream.h"
#include "tagdata/chump_file.h"
#include "tagdata/chunk_walker.h"
#include "tagdata/chunk_writer.h"
#include "tests/tagdata/soup_tree.h"

namespace morvex {
namespace {

using std::string_literals::operator""s;

const std::string kTagA =
    "\x08\0\0\0\x02"
    "a\0\x01\x01\0\0\0"s;

std::string File(const std::string& body, char version = 1) {
  std::string file = "ACS$"s + version + "\0\0\0\0\0\0\0"s;
  for (int shift = 0; shift < 32; shift += 8)
    file += static_cast<char>(body.size() >> shift);
  return file + body;
}

std::string Nested(const std::string& body) {
  std::string chunk;
  for (int shift = 0; shift < 32; shift += 8)
    chunk += static_cast<char>((body.size() + 4) >> shift);
  return chunk + "\x02n\0\0"s + body;
}

// From a block of exactly this size, so that a sanitizer sees a step past its end.
TagContainer Read(const std::string& file) {
  return ReadChumpImage(ACSRawDataCore::CopyBytes(file.data(), file.size()));
}

TEST(ChunkFile, WritesTheseBytes) {
  const std::tuple<const char*, std::string> kCases[] = {
      {"a 1", kTagA},
      {"s hi", "\x07\0\0\0\x02s\0\x03hi\0"s},
      {"e \"\"\nz",
       "\x04\0\0\0\x02"
       "e\0\x03\x04\0\0\0\x02z\0\x05"s},
      {"n {\na 1\n}", Nested(kTagA)},
      {"f 0.5\nk <kuid2:100:200:3>",
       "\x08\0\0\0\x02"
       "f\0\x02\0\0\0\x3F\x0C\0\0\0\x02k\0\x0D\x64\0\0\x06\xC8\0\0\0"s},
      {"", ""},
  };
  for (const auto& [text, body] : kCases) {
    const TagContainer soup = FromText(text);
    EXPECT_EQ(ChumpImage(soup), File(body)) << text;
    EXPECT_EQ(Tree(Read(File(body))), Tree(soup)) << text;
  }
  EXPECT_TRUE(Read(File("")).IsEmpty());
}

TEST(ChunkFile, ReadsOddChunks) {
  const std::tuple<std::string, const char*> kCases[] = {
      {File("\x02\0\0\0\0\x05"s), ""},                  // a null tag without a name
      {File(kTagA + "xyz"), "a=1"},                     // stray bytes at the end
      {File("\x08\0\0\0\x02q\0\x07\x01\0\0\0"s), "q"},  // unknown type
      {File(kTagA, 0), "a=1"},
      {File("\x06\0\0\0\x02s\0\x03\xE9!"s, 0), "s=\"\xC3\xA9!\""},  // code page, no NUL
      {File("\x06\0\0\0\x02s\0\x03hi"s), "s=\"hi\""},               // no NUL
      {File("\x05\0\0\0\x02"
            "bc\x04x"s),
       "bc=#78"},  // a name without its NUL
      {File("\x06\0\0\0\x03"
            "b\0c\x04"s +
            "x"),
       "b=#78"},                                           // a name cut by a NUL
      {File("\x0D\0\0\0\x02p\0\x0C--------X"s), "p=#58"},  // aligned: the data lies at 8, the bytes at 16
      {File("\x07\0\0\0\x02p\0\x0C---"s), "p=#"},          // more padding than data
  };
  for (const auto& [file, tree] : kCases)
    EXPECT_EQ(Tree(Read(file)), tree) << testing::PrintToString(file);
}

TEST(ChunkFile, RefusesDamage) {
  const std::string good = Nested(kTagA) + kTagA;
  std::string badSize = good;
  badSize[8] = '\x7F';  // the inner chunk runs past its soup
  const std::string kBad[] = {
      "",
      "ACS$",
      "XCS$" + File(good).substr(4),
      File(good).substr(0, 40),
      File(good, 2),
      File(badSize),
      File("\x01\0\0\0\0\x05"s),  // smaller than its head
      File("\x04\0\0\0\x08"
           "abc\x05"s),  // smaller than its name
      File("\xFF\xFF\xFF\xFF\0\x05"s),
      File("\xFC\xFF\xFF\xFF\0\x05"s),
      "ACS$\x01\0\0\0\0\0\0\0\xFF\xFF\xFF\xFF"s,  // a negative size
      "ACS$\x01\0\0\0\0\0\0\0\xFF\xFF\xFF\x7F"s + kTagA,
  };
  for (const std::string& file : kBad) {
    EXPECT_TRUE(Read(file).IsEmpty()) << testing::PrintToString(file);
    TBuffer stream;
    stream.Write(file.data(), file.size());
    stream.SeekTo(0);
    EXPECT_TRUE(ReadChumpFile(stream).IsEmpty()) << testing::PrintToString(file);
  }
  for (size_t size = 0; size < File(good).size(); ++size)
    EXPECT_TRUE(Read(File(good).substr(0, size)).IsEmpty()) << size;
  // A body cut anywhere under a header that agrees either reads or is refused.
  for (size_t size = 1; size < good.size(); ++size)
    Tree(Read(File(good.substr(0, size))));
}

TEST(ChunkFile, LimitsDepth) {
  const auto nested = [](int depth) {
    std::string body = kTagA;
    for (int i = 0; i < depth; ++i)
      body = Nested(body);
    return File(body);
  };
  EXPECT_TRUE(Read(nested(256)).IsValid());
  EXPECT_TRUE(Read(nested(257)).IsEmpty());
  EXPECT_TRUE(Read(nested(2000)).IsEmpty());

  // What a program built too deep is written as far as it can be read again.
  TagContainer soup = FromText("a 1");
  for (int i = 0; i < 300; ++i) {
    TagContainer outer;
    outer.SetContainer(Nox::PString("n"), soup);
    soup = outer;
  }
  EXPECT_TRUE(Read(ChumpImage(soup)).IsValid());
}

TEST(ChunkFile, LeavesTheStreamBehindTheBody) {
  TBuffer stream;
  ASSERT_TRUE(WriteChumpFile(FromText("a 1"), stream));
  ASSERT_TRUE(WriteChumpFile(FromText("b 2"), stream));
  stream.SeekTo(0);
  EXPECT_EQ(Tree(ReadChumpFile(stream)), "a=1");
  EXPECT_EQ(Tree(ReadChumpFile(stream)), "b=2");
}

TEST(ChunkFile, ViewsTakeChanges) {
  using Change = std::function<void(TagContainer&)>;
  const auto name = [](const char* text) { return Nox::PString(text); };
  const std::tuple<const char*, Change> kCases[] = {
      {"b=\"x\" n{c=2 d} e a=9", [&](TagContainer& s) { s.SetInt(name("a"), 9); }},
      {"a=1 n{c=2 d} e", [&](TagContainer& s) { s.Remove(name("b")); }},
      {"a=1 b=\"x\" n{c=2 d} e=7", [&](TagContainer& s) { s.SetInt(name("e"), 7); }},
      {"a=1 b=\"x\" n{d c=3} e", [&](TagContainer& s) { s.GetContainer(name("n")).SetInt(name("c"), 3); }},
      {"a=1 b=\"x\" n{c=2} e", [&](TagContainer& s) { s.GetContainer(name("n")).Remove(name("d")); }},
      {"a=1 b=\"x\" n{c=2 d}", [&](TagContainer& s) { s.RemoveChunk(s.Chunk()->GetChunk(name("e")).Get()); }},
      {"a=1 b=\"x\" n{c=2 d} e", [&](TagContainer& s) { s.RemoveChunk(NullChunk().Get()); }},
      {"a=1 b=\"x\" e m{c=2 d}",  // a soup gets a new name within its own file
       [&](TagContainer& s) {
         s.SetContainer(name("m"), s.GetContainer(name("n")));
         s.Remove(name("n"));
       }},
      {"a=1 n{c=2 d} e b=#7800", [&](TagContainer& s) { s.SetRaw(name("b"), s.GetRaw(name("b"))); }},
      {"a=1 b=\"x\" n{c=2 d} e",
       [&](TagContainer& s) {
         s.SetInt(name("z"), 1);
         s.SetInt(name("z"), 2);
         s.Remove(name("z"));
       }},
  };
  const std::string file = ChumpImage(FromText("a 1\nb x\nn {\nc 2\nd\n}\ne"));
  for (const auto& [tree, change] : kCases) {
    TagContainer soup = Read(file);
    change(soup);
    EXPECT_EQ(Tree(soup), tree);
    EXPECT_EQ(Tree(Read(ChumpImage(soup))), tree);
    TagContainer copy;
    copy.CopyFrom(soup);
    soup.Clear();
    EXPECT_EQ(Tree(copy), tree);
  }
}

TEST(ChunkFile, FindsTheFirstOfOneName) {
  ChunkWriter writer;
  for (int i = 0; i < 200; ++i)
    writer.Int(std::to_string(i % 100), i);
  const std::string file = writer.FileImage();
  TagContainer soup = Read(file);
  for (int round = 0; round < 3; ++round)
    EXPECT_EQ(soup.GetInt(Nox::PString("99")), 99);
  soup.Remove(Nox::PString("99"));
  EXPECT_EQ(soup.GetInt(Nox::PString("99")), 199);
  EXPECT_EQ(soup.GetCount(), 199u);
  EXPECT_EQ(soup.GetName(198), "99");
  EXPECT_EQ(soup.GetName(99), "0");
}

TEST(ChunkFile, DropsNamesThatAreTooLong) {
  TagContainer soup = FromText("a 1");
  soup.SetInt(Nox::PString(std::string(254, 'x')), 2);
  soup.SetInt(Nox::PString(std::string(255, 'y')), 3);
  TagContainer inner = FromText("n {\nb 1\n}");
  soup.SetContainer(Nox::PString(std::string(255, 'z')), inner);
  EXPECT_EQ(Tree(Read(ChumpImage(soup))), "a=1 " + std::string(254, 'x') + "=2");
}

TEST(ChunkFile, WritesBigSharedDataInItsPlace) {
  const std::string big(10000, 'B');
  TagContainer soup = FromText("a 1\nn {\nb 1\n}");
  TagContainer inner = soup.GetContainer(Nox::PString("n"));
  inner.SetRaw(Nox::PString("big"), ACSRawDataCore::CopyBytes(big.data(), big.size()));
  soup.SetRaw(Nox::PString("big"), inner.GetRaw(Nox::PString("big")));
  TBuffer stream;
  ASSERT_TRUE(WriteChumpFile(soup, stream));
  stream.SeekTo(0);
  EXPECT_EQ(Tree(ReadChumpFile(stream)), Tree(soup));
}

}  // namespace
}  // namespace morvex
