#include "engine/byte_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/byte_writer.h"
#include "engine/owned_bytes.h"

namespace Nox {
namespace {

std::vector<std::uint8_t> Sample() {
  std::vector<std::uint8_t> bytes;
  ByteWriter out(bytes);
  out.U8(0x12);
  out.U16(0x3456);
  out.U32(0);
  out.U64(0x0102030405060708);
  out.I32(-2);
  out.F32(1.5F);
  out.Text("abc");
  out.Zeros(2);
  out.PatchU32(3, 0x789ABCDE);
  return bytes;
}

TEST(ByteReader, ReadsWhatTheWriterWrote) {
  const std::vector<std::uint8_t> bytes = Sample();
  EXPECT_EQ(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + 7),
            (std::vector<std::uint8_t>{0x12, 0x56, 0x34, 0xDE, 0xBC, 0x9A, 0x78}));
  ByteReader in(bytes);
  EXPECT_EQ(in.U8(), 0x12);
  EXPECT_EQ(in.U16(), 0x3456);
  EXPECT_EQ(in.U32(), 0x789ABCDEU);
  EXPECT_EQ(in.U64(), 0x0102030405060708U);
  EXPECT_EQ(in.I32(), -2);
  EXPECT_EQ(in.F32(), 1.5F);
  EXPECT_EQ(in.Text(3), "abc");
  EXPECT_TRUE(in.Skip(2));
  EXPECT_TRUE(in.AtEnd());
  EXPECT_FALSE(in.Failed());
}

// Each prefix lies in a block of its own, so that a sanitizer sees a read of one byte too many.
TEST(ByteReader, FailsOnEveryPrefixAndStaysFailed) {
  const std::vector<std::uint8_t> whole = Sample();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const std::vector<std::uint8_t> bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    ByteReader in(bytes);
    in.U8(), in.U16(), in.U32(), in.U64(), in.I32(), in.F32(), in.Text(3), in.Skip(2);
    EXPECT_TRUE(in.Failed()) << size;
    EXPECT_EQ(in.Remaining(), 0U);
    EXPECT_FALSE(in.SeekTo(0));
    EXPECT_EQ(in.U8(), 0);
  }
  ByteReader in(whole);
  EXPECT_TRUE(in.SeekTo(2));
  EXPECT_EQ(in.Bytes(SIZE_MAX).size(), 0U);  // a count that would wrap around
}

TEST(OwnedBytes, SlicesKeepTheBlockAlive) {
  OwnedBytes slice = OwnedBytes::Adopt({1, 2, 3, 4}).Slice(1, 2);
  EXPECT_EQ(std::vector<std::uint8_t>(slice.Data(), slice.Data() + slice.Size()),
            (std::vector<std::uint8_t>{2, 3}));
  EXPECT_EQ(slice.Slice(1, 100).Size(), 1U);
  EXPECT_TRUE(slice.Slice(100).Empty());
}

}  // namespace
}  // namespace Nox
