#pragma once

#include <array>

#include "packages/lzss_format.h"
#include "packages/lzss_token_writer.h"

namespace Nox {

// Groups of the flag coding: a 32-bit word of flags, then the bytes of the tokens that end in the word.
class LzssFlagGroup {
 public:
  explicit LzssFlagGroup(LzssSink& sink) : sink_(sink) {}

  // A token's bytes are added before its last flag, which may close the group.
  void Add(std::uint8_t byte) { bytes_[size_++] = byte; }
  void Add(std::span<const std::uint8_t> bytes);
  void Flag(bool set);
  // Writes a group that isn't full.
  void Finish();

 private:
  // A run that had its first flag in the word before, 15 more in full, and in the last flag a match.
  static constexpr std::size_t kMaxBytes = 16 * (1 + kLzssMaxRun) + 3;

  void Write();

  LzssSink& sink_;
  std::uint32_t flags_ = 0;
  std::uint32_t mask_ = 1;  // of the next flag
  std::size_t size_ = 0;
  std::array<std::uint8_t, kMaxBytes> bytes_;
};

// The flag coding. Derived classes know the tokens.
class LzssFlagWriter : public LzssTokenWriter {
 public:
  explicit LzssFlagWriter(LzssSink& sink) : group_(sink) {}
  void Write(std::span<const LzssToken> tokens, const std::uint8_t* data) final;
  void Finish() final { group_.Finish(); }

 protected:
  virtual void Literals(std::span<const std::uint8_t> bytes) = 0;
  virtual void Match(unsigned length, unsigned offset) = 0;

  LzssFlagGroup group_;
};

// Windows 1 and 2.
class LzssWideWriter : public LzssFlagWriter {
 public:
  LzssWideWriter(const LzssWindow& window, LzssSink& sink) : LzssFlagWriter(sink), window_(window) {}

 protected:
  void Literals(std::span<const std::uint8_t> bytes) override;
  void Match(unsigned length, unsigned offset) override;

 private:
  const LzssWindow& window_;
};

// Window 0.
class LzssNarrowWriter : public LzssFlagWriter {
 public:
  using LzssFlagWriter::LzssFlagWriter;

 protected:
  void Literals(std::span<const std::uint8_t> bytes) override;
  void Match(unsigned length, unsigned offset) override;
};

}  // namespace Nox
