#include "net/transfer/chunked_body.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

#include "net/transfer/body_file.h"
#include "net/transfer/input_buffer.h"

namespace morvex {
namespace {

// Line ends, size and extension of a chunk are no longer than this.
constexpr int kMaxHead = 4096;
constexpr std::size_t kMaxDigits = 16;

// The bytes of one chunk's head. Gives -1 behind the longest one that is allowed.
class ChunkHead {
 public:
  explicit ChunkHead(InputBuffer& input) : input_(input) {}

  int Next() { return left_-- > 0 ? input_.Next() : -1; }

 private:
  InputBuffer& input_;
  int left_ = kMaxHead;
};

bool IsHexDigit(int byte) {
  return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'f') || (byte >= 'A' && byte <= 'F');
}

std::optional<std::uint64_t> ReadSize(InputBuffer& input) {
  ChunkHead head(input);
  int byte = head.Next();
  while (byte == '\r' || byte == '\n')
    byte = head.Next();
  char digits[kMaxDigits];
  std::size_t count = 0;
  for (; IsHexDigit(byte); byte = head.Next()) {
    if (count == kMaxDigits) return std::nullopt;
    digits[count++] = static_cast<char>(byte);
  }
  while (byte != '\r' && byte != -1)
    byte = head.Next();
  if (count == 0 || head.Next() != '\n') return std::nullopt;
  std::uint64_t size = 0;
  std::from_chars(digits, digits + count, size, 16);
  return size;
}

}  // namespace

bool ReadChunks(InputBuffer& input, BodyFile& file) {
  for (;;) {
    const std::optional<std::uint64_t> size = ReadSize(input);
    if (!size) return false;
    if (*size == 0) return true;
    if (!file.Receive(input, *size)) return false;
  }
}

}  // namespace morvex
