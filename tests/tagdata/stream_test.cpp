#include "tagdata/stream.h"

#include <gtest/gtest.h>

#include <random>

#include "tagdata/buffer_stream.h"
#include "tagdata/file_stream.h"
#include "tests/scratch_folder.h"

namespace morvex {
namespace {

// Runs random operations on a stream and on a plain text with a position, which must agree throughout.
void CompareWithPlainText(TStream& stream, unsigned seed) {
  std::mt19937 random(seed);
  const auto upTo = [&](size_t limit) { return std::uniform_int_distribution<size_t>(0, limit)(random); };
  std::string text;
  for (int i = 0; i < 20000; ++i)
    text += static_cast<char>(random());
  stream.Write(text.data(), text.size());
  stream.SeekTo(0);
  size_t place = 0;

  for (int step = 0; step < 3000; ++step) {
    const size_t length = upTo(9) == 0 ? upTo(9000) : upTo(30);
    switch (upTo(6)) {
      case 0: {
        const std::string written(length, static_cast<char>(step));
        stream.Write(written.data(), length);
        text.replace(place, length, written);
        place += length;
        break;
      }
      case 1:
        place = upTo(text.size());
        stream.SeekTo(static_cast<int64_t>(place));
        break;
      case 2: {
        const size_t target = std::min(text.size(), place + length);
        stream.Skip(static_cast<int64_t>(target) - static_cast<int64_t>(place));
        place = target;
        break;
      }
      case 3:
        for (size_t i = upTo(16); i > 0 && place > 0 && place < text.size(); --i, --place)
          stream.UnreadByte();
        break;
      case 4:
        EXPECT_EQ(stream.Size(), static_cast<int64_t>(text.size()));
        break;
      default: {
        std::string read(length, '\0');
        read.resize(stream.Read(read.data(), length));
        ASSERT_EQ(read, text.substr(place, length)) << "step " << step;
        place += read.size();
      }
    }
    ASSERT_EQ(stream.Position(), static_cast<int64_t>(place)) << "step " << step;
  }
}

TEST(Stream, AgreesWithPlainText) {
  const ScratchFolder folder;
  for (unsigned seed = 0; seed < 5; ++seed) {
    TBuffer buffer(0, 100000);
    CompareWithPlainText(buffer, seed);
    TFile file;
    ASSERT_TRUE(file.Open(folder / "file", Nox::OpenMode::kCreate));
    file.Write("x", 1);
    ASSERT_TRUE(file.Open(folder / "file", Nox::OpenMode::kUpdate));
    CompareWithPlainText(file, seed);
    file.Truncate();
    EXPECT_EQ(file.Size(), 0);
  }
}

TEST(Stream, StringsKeepToTheirLimits) {
  TBuffer stream;
  stream.WriteString("abc", true);
  stream.WriteString("", true);
  stream.WritePString(Nox::PString(), true);
  stream.WriteString(std::string(65535, 'x'), true);
  const auto bytes = stream.Memory().Bytes();
  EXPECT_EQ(std::string(bytes.begin(), bytes.end()), std::string("\4\0\0\0abc\0"
                                                                 "\1\0\0\0\0"
                                                                 "\0\0\0\0"
                                                                 "\0\0\0\0",
                                                                 21));

  stream.Truncate();
  stream.WriteString(std::string(65534, 'x'), true);
  stream.WriteU32(3);
  stream.WriteString("abc", false);
  stream.WriteU32(70000);
  stream.WriteString(std::string(70000, 'y'), false);
  stream.WriteU32(100);
  stream.WriteString("cut", false);
  stream.SeekTo(0);
  std::string text;
  stream.ReadString(text);
  EXPECT_EQ(text, std::string(65534, 'x'));
  Nox::PString interned;
  stream.ReadPString(interned);
  EXPECT_EQ(interned, "abc");
  const int64_t before = stream.Position();
  stream.ReadString(text);
  EXPECT_EQ(text, "");
  EXPECT_EQ(stream.Position(), before + 4 + 70000);
  stream.ReadString(text);
  EXPECT_EQ(text, "cut");
}

TEST(Stream, SizeFieldsHoldWhatFollows) {
  TBuffer stream;
  const int64_t outer = stream.BeginSizeField();
  const int64_t inner = stream.BeginSizeField();
  stream.EndSizeField(inner);
  stream.Printf("%d%s", 12, "ab");
  stream.EndSizeField(outer);
  EXPECT_EQ(stream.Position(), 12);
  stream.SeekTo(0);
  EXPECT_EQ(stream.ReadU32(), 8u);
  EXPECT_EQ(stream.ReadU32(), 0u);
  EXPECT_EQ(stream.ReadU32(), 0x62613231u);
}

TEST(Stream, LentFileIsLeftWhereReadingStopped) {
  const ScratchFolder folder;
  Nox::File file;
  ASSERT_TRUE(file.Open(folder / "file", Nox::OpenMode::kCreate));
  file.Write("0123456789", 10);
  ASSERT_TRUE(file.Open(folder / "file", Nox::OpenMode::kRead));
  {
    TFile stream(file);
    EXPECT_EQ(stream.ReadByte(), '0');
    EXPECT_FALSE(stream.AtEnd());
  }
  EXPECT_EQ(file.Tell(), 1u);
  TFile closed;
  EXPECT_TRUE(closed.AtEnd());
  EXPECT_EQ(closed.ReadU32(), 0u);
  EXPECT_EQ(closed.Write("x", 1), 0u);
  EXPECT_TRUE(closed.WriteFailed());
}

}  // namespace
}  // namespace morvex
