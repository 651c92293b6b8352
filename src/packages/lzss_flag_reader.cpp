#include "packages/lzss_flag_reader.h"

namespace Nox {

LzssTokenReader::Status LzssFlagReader::Read(std::span<const std::uint8_t>& input, std::size_t reserve,
                                             LzssOutput& output) {
  ByteReader in(input);
  while (in.Remaining() > reserve) {
    if (!ReadToken(in, output) || in.Failed()) return Status::kDamaged;
  }
  input = input.subspan(in.Position());
  return reserve == 0 ? Status::kDone : Status::kMore;
}

bool LzssWideReader::ReadToken(ByteReader& in, LzssOutput& output) {
  if (Flag(in) != 0) {
    const unsigned word = in.U16();
    unsigned length = word >> window_.bits;
    if (length == LzssWideLengthEscape(window_)) length = in.U8();
    const unsigned offset = word & (window_.Size() - 1);
    return !in.Failed() && output.Match(length + kLzssMinMatch, offset);
  }
  if (Flag(in) != 0) {
    const auto bytes = in.Bytes(in.U8() + std::size_t{kLzssMinRun});
    return !in.Failed() && output.Literals(bytes);
  }
  const std::uint8_t byte = in.U8();
  return !in.Failed() && output.Literal(byte);
}

bool LzssNarrowReader::ReadToken(ByteReader& in, LzssOutput& output) {
  if (Flag(in) != 0) {
    unsigned length = Flag(in);
    length |= Flag(in) << 1;
    length |= Flag(in) << 2;
    if (length == kLzssNarrowLengthEscape) length = in.U8();
    const unsigned offset = in.U8();
    return !in.Failed() && output.Match(length + kLzssMinMatch, offset);
  }
  const std::uint8_t byte = in.U8();
  return !in.Failed() && output.Literal(byte);
}

}  // namespace Nox
