#pragma once

#include <cstdint>
#include <string_view>

namespace morvex {

// The order of names: byte by byte with the cases of ASCII letters not told apart; a text that ends first comes
// first. Below, at or above zero.
int FoldCompare(std::string_view a, std::string_view b);

// The first 8 folded bytes as a number that compares like them; shorter texts are filled up with zeros. Texts
// whose prefixes differ compare as their prefixes do.
uint64_t FoldPrefix(std::string_view text);

}  // namespace morvex
