#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "packages/lzss_format.h"
#include "packages/lzss_token_writer.h"

// The match loop in its plain form: one hash chain, walked from end to end, with 16-bit positions that are
// lowered at each slide. What the fast finder gives must be the same, byte for byte.
class LzssPlainEncoder {
 public:
  LzssPlainEncoder(int level, std::span<const std::uint8_t> data, Nox::LzssTokenWriter& writer)
      : data_(data),
        window_(static_cast<int>(Nox::kLzssWindows[Nox::kLzssLevels[level].windowId].Size())),
        good_(static_cast<int>(Nox::kLzssLevels[level].goodLength)),
        bufferSize_(std::min(static_cast<int>(data.size()), 2 * window_ + 258)),
        shift_(bufferSize_ < 2000    ? 3
               : bufferSize_ < 24000 ? 4
                                     : 5),
        head_(std::size_t{1} << 3 * shift_, -1),
        previous_(static_cast<std::size_t>(bufferSize_), -1),
        writer_(writer) {}

  void Run() {
    std::size_t literals = 0;
    for (; Remaining() > 0; ++position_, ++literals) {
      if (Remaining() < 3) continue;
      if (literals == 258) Flush(literals);
      if (position_ >= 2 * window_) Slide();
      Insert();
      auto [length, offset] = Search();
      if (length < 3) continue;
      Flush(literals);
      const int first = position_;
      for (; length >= 3; length -= std::min(length, 258)) {
        const int end = position_ + std::min(length, 258);
        Write({0, static_cast<std::uint16_t>(end - position_), static_cast<std::uint16_t>(offset)},
              At(position_));
        for (; position_ < end; ++position_) {
          if (position_ != first && Remaining() >= 3) Insert();
        }
      }
      --position_;
      --literals;  // the loop counts both up again
    }
    while (literals != 0)
      Flush(literals);
    writer_.Finish();
  }

 private:
  struct Found {
    int length;
    int offset;
  };

  int Remaining() const { return static_cast<int>(data_.size() - start_) - position_; }
  const std::uint8_t* At(int position) const { return data_.data() + start_ + position; }

  void Flush(std::size_t& literals) {
    const std::size_t count = std::min<std::size_t>(literals, 258);
    Write({static_cast<std::uint16_t>(count), 0, 0}, At(position_) - literals);
    literals -= count;
  }

  void Write(const Nox::LzssToken& token, const std::uint8_t* data) { writer_.Write({&token, 1}, data); }

  void Insert() {
    const std::uint8_t* at = At(position_);
    auto& head =
        head_[((at[0] << 2 * shift_) ^ (at[1] << shift_) ^ at[2]) & static_cast<int>(head_.size() - 1)];
    previous_[static_cast<std::size_t>(position_)] = head;
    head = static_cast<std::int16_t>(position_);
  }

  Found Search() const {
    const int limit = std::min(Remaining(), bufferSize_ - position_);
    Found best{2, 0};
    int at = previous_[static_cast<std::size_t>(position_)];
    for (; at != -1 && at > position_ - window_; at = previous_[static_cast<std::size_t>(at)]) {
      const int length =
          static_cast<int>(std::mismatch(At(at), At(at) + limit, At(position_)).first - At(at));
      if (length > best.length) best = {length, position_ - at};
      if (best.length >= std::min(good_, limit)) break;
    }
    return best;
  }

  void Slide() {
    const int delta = position_ - window_;
    const auto lower = [delta](std::int16_t at) {
      return static_cast<std::int16_t>(at < delta ? -1 : at - delta);
    };
    std::transform(head_.begin(), head_.end(), head_.begin(), lower);
    std::transform(previous_.begin() + delta, previous_.end(), previous_.begin(), lower);
    start_ += static_cast<std::size_t>(delta);
    position_ = window_;
  }

  std::span<const std::uint8_t> data_;
  int window_;
  int good_;
  int bufferSize_;
  int shift_;
  std::vector<std::int16_t> head_;
  std::vector<std::int16_t> previous_;
  Nox::LzssTokenWriter& writer_;
  std::size_t start_ = 0;
  int position_ = 0;
};
