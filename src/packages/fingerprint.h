#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace morvex {

class TagContainer;

// A checksum over bytes as they are stored in a package, and the count of bytes that went into it.
struct Fingerprint {
  uint32_t hash = 0;
  uint32_t size = 0;

  bool operator==(const Fingerprint&) const = default;
};

// Of whole 32-bit words alone: up to 3 bytes at the end don't count, and neither do blocks of at most 4 bytes.
Fingerprint BlockFingerprint(std::span<const uint8_t> bytes);

// Of all files of a `files` soup, sub-folders included.
Fingerprint FilesFingerprint(const TagContainer& files);

// The value of the tag `dsid`: size, ':', hash, both as signed decimals.
std::string DsidText(const TagContainer& files);

}  // namespace morvex
