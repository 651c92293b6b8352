#include "packages/lzss_flag_writer.h"

#include <algorithm>

namespace Nox {

void LzssFlagGroup::Add(std::span<const std::uint8_t> bytes) {
  std::copy(bytes.begin(), bytes.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(size_));
  size_ += bytes.size();
}

void LzssFlagGroup::Flag(bool set) {
  if (set) flags_ |= mask_;
  mask_ <<= 1;
  if (mask_ == 0) Write();
}

void LzssFlagGroup::Finish() {
  if (mask_ != 1) Write();
}

void LzssFlagGroup::Write() {
  sink_.Put32(flags_);
  sink_.Put({bytes_.data(), size_});
  flags_ = 0;
  mask_ = 1;
  size_ = 0;
}

void LzssFlagWriter::Write(std::span<const LzssToken> tokens, const std::uint8_t* data) {
  for (const LzssToken& token : tokens) {
    if (token.literals != 0) Literals({data, token.literals});
    if (token.length != 0) Match(token.length, token.offset);
    data += token.literals + token.length;
  }
}

void LzssWideWriter::Literals(std::span<const std::uint8_t> bytes) {
  // Below this a run's own byte costs more than single literals.
  constexpr std::size_t kWorthARun = 6;
  if (bytes.size() >= kWorthARun) {
    group_.Flag(false);
    group_.Add(static_cast<std::uint8_t>(bytes.size() - kLzssMinRun));
    group_.Add(bytes);
    group_.Flag(true);
    return;
  }
  for (const std::uint8_t byte : bytes) {
    group_.Flag(false);
    group_.Add(byte);
    group_.Flag(false);
  }
}

void LzssWideWriter::Match(unsigned length, unsigned offset) {
  const unsigned escape = LzssWideLengthEscape(window_);
  const unsigned rest = length - kLzssMinMatch;
  const unsigned word = std::min(rest, escape) << window_.bits | offset;
  group_.Add(static_cast<std::uint8_t>(word));
  group_.Add(static_cast<std::uint8_t>(word >> 8));
  if (rest >= escape) group_.Add(static_cast<std::uint8_t>(rest));
  group_.Flag(true);
}

void LzssNarrowWriter::Literals(std::span<const std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) {
    group_.Add(byte);
    group_.Flag(false);
  }
}

void LzssNarrowWriter::Match(unsigned length, unsigned offset) {
  const unsigned rest = length - kLzssMinMatch;
  const unsigned inFlags = std::min(rest, kLzssNarrowLengthEscape);
  group_.Flag(true);
  group_.Flag((inFlags & 1) != 0);
  group_.Flag((inFlags & 2) != 0);
  if (rest >= kLzssNarrowLengthEscape) group_.Add(static_cast<std::uint8_t>(rest));
  group_.Add(static_cast<std::uint8_t>(offset));
  group_.Flag((inFlags & 4) != 0);
}

}  // namespace Nox
