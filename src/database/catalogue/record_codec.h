#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "database/catalogue/asset_info.h"
#include "engine/byte_reader.h"

namespace morvex {

// The bytes of one record (see index_format.h), read and written.

// Reads a string field, as a view; empty once the reader has failed.
std::string_view ReadIndexString(Nox::ByteReader& in);
KUID ReadIndexKuid(Nox::ByteReader& in);
KUID KuidAt(const uint8_t* bytes);
// Gives the place behind it.
uint8_t* PutIndexKuid(uint8_t* at, const KUID& kuid);
inline bool IsNullKuidAt(const uint8_t* bytes) {
  uint64_t words = 0;
  std::memcpy(&words, bytes, sizeof words);
  return words == ~uint64_t{0};
}

// What a text takes as a string field, and the field itself; gives the place behind it.
size_t IndexStringSize(std::string_view text);
uint8_t* PutIndexString(uint8_t* at, std::string_view text);

// The fixed part, decoded.
struct FixedPart {
  AssetNumbers numbers;
  uint8_t stateFlags = 0;
  uint8_t statusFlags = 0;
  bool permitListing = true;
  bool plainFlags = true;  // every flag byte was 0 or 1
  uint32_t folderSize = 0;
  int8_t rating = -1;
};

FixedPart DecodeFixed(const uint8_t* bytes);
void EncodeFixed(const FixedPart& fixed, uint8_t* bytes);  // kFixedSize of them

// The texts of an encoded record, of which the fixed part begins at `fixedAt`. The bytes have been validated.
std::string_view TextIn(const uint8_t* record, uint32_t fixedAt, size_t which);
AssetTexts TextsIn(const uint8_t* record, uint32_t fixedAt);

}  // namespace morvex
