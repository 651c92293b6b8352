#include "database/catalogue/fold_compare.h"

#include <algorithm>
#include <array>

#include "engine/text.h"

namespace morvex {
namespace {

constexpr std::array<uint8_t, 256> kFold = [] {
  std::array<uint8_t, 256> fold{};
  for (size_t i = 0; i < fold.size(); ++i)
    fold[i] = static_cast<uint8_t>(Nox::ToLower(static_cast<char>(i)));
  return fold;
}();

uint8_t Folded(char c) {
  return kFold[static_cast<uint8_t>(c)];
}

}  // namespace

int FoldCompare(std::string_view a, std::string_view b) {
  const size_t shared = std::min(a.size(), b.size());
  for (size_t i = 0; i < shared; ++i) {
    const int difference = Folded(a[i]) - Folded(b[i]);
    if (difference != 0) return difference;
  }
  return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}

uint64_t FoldPrefix(std::string_view text) {
  uint64_t prefix = 0;
  for (size_t i = 0; i < 8; ++i)
    prefix = prefix << 8 | (i < text.size() ? Folded(text[i]) : 0);
  return prefix;
}

}  // namespace morvex
