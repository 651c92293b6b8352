#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Nox {

// Numbers that both sides of the LZSS codec share. docs/lzss-stream.md draws the whole format.
//
//   offset  size  field
//   0       1     header: bits 0 to 3 the level, bits 4 and 5 the window id
//   1       rest  level 0: the plain bytes; 1 to 6: flag coding; 7 to 9: Huffman coding

inline constexpr int kLzssMaxLevel = 9;
inline constexpr int kLzssLastFlagLevel = 6;
inline constexpr unsigned kLzssWindowCount = 3;

inline constexpr unsigned kLzssMinMatch = 3;
inline constexpr unsigned kLzssMaxMatch = 258;
// Literals that one token of the flag coding can hold.
inline constexpr unsigned kLzssMaxRun = 258;
inline constexpr unsigned kLzssMinRun = 3;

// How far a match may reach back, and how the Huffman coding splits an offset.
struct LzssWindow {
  unsigned bits;
  unsigned offsetSymbols;
  unsigned lowOffsetBits;

  constexpr unsigned Size() const { return 1U << bits; }
};
inline constexpr std::array<LzssWindow, kLzssWindowCount> kLzssWindows{
    {{8, 16, 4}, {12, 64, 6}, {14, 64, 8}}};

struct LzssLevel {
  unsigned windowId;
  unsigned goodLength;  // a match of this length ends the search for a longer one
};
inline constexpr std::array<LzssLevel, kLzssMaxLevel + 1> kLzssLevels{
    {{0, 0}, {1, 8}, {1, 16}, {1, 32}, {2, 64}, {2, 128}, {2, 256}, {2, 64}, {2, 128}, {2, 256}}};

// Symbols of the main tree: 256 literals, 16 length codes, the end mark.
inline constexpr unsigned kLzssFirstLengthCode = 256;
inline constexpr unsigned kLzssEndMark = 272;
inline constexpr unsigned kLzssMainSymbols = 273;

// Length = base + extra bits + kLzssMinMatch.
struct LzssLengthCode {
  std::uint8_t base;
  std::uint8_t extraBits;
};
inline constexpr std::array<LzssLengthCode, 16> kLzssLengthCodes{{{0, 0},
                                                                  {1, 0},
                                                                  {2, 0},
                                                                  {3, 0},
                                                                  {4, 0},
                                                                  {5, 1},
                                                                  {7, 1},
                                                                  {9, 2},
                                                                  {13, 2},
                                                                  {17, 3},
                                                                  {25, 3},
                                                                  {33, 4},
                                                                  {49, 4},
                                                                  {65, 5},
                                                                  {97, 5},
                                                                  {129, 7}}};

// In the wide tokens of the flag coding, the length field's value that says "the length follows in a byte".
constexpr unsigned LzssWideLengthEscape(const LzssWindow& window) {
  return (1U << (16 - window.bits)) - 1;
}
// The same in the three flags of a narrow token.
inline constexpr unsigned kLzssNarrowLengthEscape = 7;

constexpr std::uint8_t LzssHeader(unsigned windowId, int level) {
  return static_cast<std::uint8_t>(windowId << 4 | static_cast<unsigned>(level));
}
constexpr int LzssHeaderLevel(std::uint8_t header) {
  return header & 15;
}
constexpr unsigned LzssHeaderWindowId(std::uint8_t header) {
  return header >> 4 & 3U;
}

}  // namespace Nox
