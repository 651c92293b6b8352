#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine/byte_reader.h"
#include "engine/byte_writer.h"

// What mesh files have in common.
//
//   padded string: u32 count of bytes, without a NUL; the bytes; zero bytes up to a multiple of 4 behind the count.
//                  The empty string is a count of 0.
//   size mark:     u32, the count of the bytes that follow it
namespace Nox::MeshFileSupport {

constexpr std::size_t Padding(std::size_t count) {
  return (4 - count % 4) % 4;
}

// A view into the reader's bytes. A count that runs past their end makes the reader fail; what the padding
// holds isn't looked at.
inline std::string_view ReadPaddedString(ByteReader& in) {
  const std::uint32_t count = in.U32();
  const std::string_view text = in.Text(count);
  in.Skip(Padding(count));
  return text;
}

template <typename Container>
void WritePaddedString(ByteWriter<Container>& out, std::string_view text) {
  out.U32(static_cast<std::uint32_t>(text.size()));
  out.Text(text);
  out.Zeros(Padding(text.size()));
}

// The place of a size that isn't known yet.
template <typename Container>
[[nodiscard]] std::size_t MarkSizePos(ByteWriter<Container>& out) {
  const std::size_t mark = out.Size();
  out.U32(0);
  return mark;
}

// Sets it to what has been written behind it, which must be below 4 GiB.
template <typename Container>
void WriteSizeAtMark(ByteWriter<Container>& out, std::size_t mark) {
  out.PatchU32(mark, static_cast<std::uint32_t>(out.Size() - mark - 4));
}

}  // namespace Nox::MeshFileSupport
