#pragma once

#include <cstdint>
#include <string>

// Small images of the test's own making.
inline std::string TgaImage(uint16_t width, uint16_t height) {
  std::string bytes(18, '\0');
  bytes[2] = 2;  // not compressed
  bytes[12] = static_cast<char>(width & 0xFF), bytes[13] = static_cast<char>(width >> 8);
  bytes[14] = static_cast<char>(height & 0xFF), bytes[15] = static_cast<char>(height >> 8);
  bytes[16] = 24;
  return bytes + std::string(size_t{width} * height * 3, '\x40');
}

inline std::string BmpImage(uint16_t width, uint16_t height) {
  const size_t stride = (size_t{width} * 3 + 3) / 4 * 4;
  std::string bytes("BM", 2);
  const auto word = [&](uint32_t value) {
    for (int i = 0; i < 4; ++i)
      bytes += static_cast<char>(value >> (8 * i));
  };
  for (const uint32_t value : {uint32_t(54 + stride * height), 0u, 54u, 40u, uint32_t(width),
                               uint32_t(height), 0x00180001u, 0u, 0u, 0u, 0u, 0u, 0u})
    word(value);
  return bytes + std::string(stride * height, '\x40');
}

// 8 by 8 pixels of one grey.
inline std::string JpegImage() {
  const unsigned char kHead[] = {0xFF, 0xD8, 0xFF, 0xDB, 0x00, 0x43, 0x00};
  std::string bytes(reinterpret_cast<const char*>(kHead), sizeof kHead);
  bytes += std::string(64, '\x01');
  const unsigned char kRest[] = {
      0xFF, 0xC0, 0x00, 0x0B, 0x08, 0x00, 0x08, 0x00, 0x08, 0x01, 0x01, 0x11, 0x00,  // 8 x 8, one channel
      0xFF, 0xC4, 0x00, 0x14, 0x00, 0x01, 0,    0,    0,    0,    0,    0,    0,
      0,    0,    0,    0,    0,    0,    0,    0,    0x00,  // DC: one code
      0xFF, 0xC4, 0x00, 0x14, 0x10, 0x01, 0,    0,    0,    0,    0,    0,    0,
      0,    0,    0,    0,    0,    0,    0,    0,    0x00,  // AC: one code
      0xFF, 0xDA, 0x00, 0x08, 0x01, 0x01, 0x00, 0x00, 0x3F, 0x00, 0x3F, 0xFF, 0xD9};
  return bytes.append(reinterpret_cast<const char*>(kRest), sizeof kRest);
}
