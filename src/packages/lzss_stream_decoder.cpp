#include "packages/lzss_stream_decoder.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Nox {
namespace {

// Input is decoded by pieces of this size at most, so that what is held stays small.
constexpr std::size_t kInputPiece = 16384;

}  // namespace

void LzssStreamDecoder::WindowOutput::Start(const LzssWindow& window) {
  window_ = window.Size();
  bytes_.resize(2 * window_ + 1024);
  SetBlock(bytes_.data(), 0, bytes_.size());
}

bool LzssStreamDecoder::WindowOutput::Flush() {
  const std::size_t count = Held() - written_;
  if (count != 0 && !write_({Block() + written_, count})) return false;
  written_ = Held();
  return true;
}

bool LzssStreamDecoder::WindowOutput::MakeRoom(std::size_t) {
  if (!Flush()) return false;
  const std::size_t kept = std::min(window_, Held());
  std::memmove(Block(), Block() + Held() - kept, kept);
  written_ = kept;
  SetBlock(Block(), kept, bytes_.size());
  return true;
}

LzssStreamDecoder::LzssStreamDecoder(WriteBytes write) : write_(std::move(write)), output_(write_) {}

bool LzssStreamDecoder::Fail() {
  state_ = State::kFailed;
  return false;
}

LzssStreamDecoder::State LzssStreamDecoder::Start(std::uint8_t header) {
  if (LzssHeaderLevel(header) == 0) return State::kStored;
  reader_ = MakeLzssTokenReader(header);
  if (reader_ == nullptr) return State::kFailed;
  output_.Start(kLzssWindows[LzssHeaderWindowId(header)]);
  return State::kCoded;
}

bool LzssStreamDecoder::Add(std::span<const std::uint8_t> data) {
  if (state_ == State::kHeader && !data.empty()) {
    state_ = Start(data[0]);
    data = data.subspan(1);
  }
  if (state_ == State::kFailed) return false;
  if (state_ == State::kStored) return data.empty() || write_(data) || Fail();
  while (!data.empty()) {
    const std::size_t count = std::min(data.size(), kInputPiece);
    input_.insert(input_.end(), data.begin(), data.begin() + static_cast<std::ptrdiff_t>(count));
    data = data.subspan(count);
    if (input_.size() > LzssTokenReader::kReserve && !Decode(LzssTokenReader::kReserve)) return Fail();
  }
  return true;
}

bool LzssStreamDecoder::Finish() {
  if (state_ == State::kStored) return true;
  if (state_ != State::kCoded || !Decode(0) || !output_.Flush()) return Fail();
  return true;
}

// Decodes all but `reserve` bytes of the input held.
bool LzssStreamDecoder::Decode(std::size_t reserve) {
  std::span<const std::uint8_t> rest = input_;
  const LzssTokenReader::Status status = reader_->Read(rest, reserve, output_);
  input_.erase(input_.begin(), input_.end() - static_cast<std::ptrdiff_t>(rest.size()));
  if (status == LzssTokenReader::Status::kDone) input_.clear();
  return status != LzssTokenReader::Status::kDamaged;
}

}  // namespace Nox
