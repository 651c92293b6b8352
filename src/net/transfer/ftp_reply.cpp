#include "net/transfer/ftp_reply.h"

#include <algorithm>
#include <charconv>

#include "engine/format.h"

namespace morvex {
namespace {

// What stands behind the code.
std::string_view ReplyText(std::string_view line) {
  return line.substr(line.size() < 4 ? line.size() : 4);
}

template <typename T>
bool ScanNumber(std::string_view& text, T& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return error == std::errc();
}

}  // namespace

bool HasReplyCode(std::string_view line, int code, char separator) {
  return line.starts_with(Nox::FormatText("%d%c", code, separator));
}

std::optional<std::uint32_t> ReadPassivePort(std::string_view line) {
  std::string_view text = ReplyText(line);
  text.remove_prefix(std::min(text.find_first_of("0123456789"), text.size()));
  for (int i = 0; i < 4; ++i) {
    const std::size_t comma = text.find(',');
    if (comma == text.npos) return std::nullopt;
    text.remove_prefix(comma + 1);
  }
  std::uint8_t high = 0;
  std::uint8_t low = 0;
  if (!ScanNumber(text, high) || !text.starts_with(',')) return std::nullopt;
  text.remove_prefix(1);
  if (!ScanNumber(text, low) || (high | low) == 0) return std::nullopt;
  return high * 256U + low;
}

std::optional<std::uint64_t> ReadReplyNumber(std::string_view line) {
  std::string_view text = ReplyText(line);
  std::uint64_t number = 0;
  if (!ScanNumber(text, number)) return std::nullopt;
  return number;
}

}  // namespace morvex
