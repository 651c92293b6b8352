#pragma once

#include <cstdint>

#include "engine/byte_reader.h"
#include "packages/lzss_format.h"
#include "packages/lzss_token_reader.h"

namespace Nox {

// The flag coding. Derived classes know the tokens.
class LzssFlagReader : public LzssTokenReader {
 public:
  Status Read(std::span<const std::uint8_t>& input, std::size_t reserve, LzssOutput& output) final;

 protected:
  // The next flag; a new word is read when the last is used up.
  unsigned Flag(ByteReader& in) {
    if (flagsLeft_ == 0) {
      flags_ = in.U32();
      flagsLeft_ = 32;
    }
    const unsigned flag = flags_ & 1;
    flags_ >>= 1;
    --flagsLeft_;
    return flag;
  }
  // False for damage, except that a cut token may also show in `in`.
  virtual bool ReadToken(ByteReader& in, LzssOutput& output) = 0;

 private:
  std::uint32_t flags_ = 0;
  unsigned flagsLeft_ = 0;
};

class LzssWideReader : public LzssFlagReader {
 public:
  explicit LzssWideReader(const LzssWindow& window) : window_(window) {}

 protected:
  bool ReadToken(ByteReader& in, LzssOutput& output) override;

 private:
  const LzssWindow& window_;
};

class LzssNarrowReader : public LzssFlagReader {
 protected:
  bool ReadToken(ByteReader& in, LzssOutput& output) override;
};

}  // namespace Nox
