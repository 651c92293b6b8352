#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "engine/location.h"
#include "tagdata/raw.h"

namespace morvex {

// One file between its plain form and the form it has in a package. With the compression "LZSS" that is
//
//   u32 size of the plain file, then the coded stream; at least 5 bytes in all
//
// and without a compression the file's bytes as they are. Safe on several threads at once.

enum class CodingFailure {
  kNone,
  kUnreadable,          // the file can't be opened or read
  kTooLarge,            // no memory for it, or more than a package can hold
  kUnknownCompression,  // neither empty nor "LZSS"
  kDamaged,             // the stream doesn't give the size of its prefix
};

struct CodedFile {
  CodingFailure failure = CodingFailure::kNone;
  Raw raw;
};

// The file in its form in a package.
[[nodiscard]] CodedFile CodeFile(Nox::LocationView file, std::string_view compression);

// A file's plain bytes: a view of the coded ones, or a block of its own.
struct PlainFile {
  CodingFailure failure = CodingFailure::kNone;
  const uint8_t* data = nullptr;
  size_t size = 0;
  std::unique_ptr<uint8_t[]> block = {};
};

// The other way. The view lives as long as `raw`.
[[nodiscard]] PlainFile DecodeFile(const Raw& raw, std::string_view compression);

}  // namespace morvex
