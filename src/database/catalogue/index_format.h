#pragma once

#include <cstddef>
#include <cstdint>

namespace morvex {

// The index file, `assets.tdx`. All numbers are little-endian, nothing is compressed or aligned.
//
//   u32 magic, u32 version, u32 size of the whole file, u32 count of records
//   records
//   obsoletes      u32 0, pairs of KUIDs (the new one, then the old one that it replaces), one null KUID
//   dependencies   u32 0, u32 count, pairs of KUIDs (the asset, then what it depends on)
//   authors        u32 0, u32 count, entries: string name, u32 profile number, u32 author number
//   notes          a whole chunk file
//   archives       u32 0, u32 count, entries: u32 1, u8 mounted, u32 number, string path, string name,
//                  u32 serial, u32 count, KUIDs, u32 end mark
//   station        u32 1, string last file, u64 time of the last update, u32 count, URLs as strings
//   tail           u32 0, u32 ticket state, f32 seconds left on the ticket
//
//   string         u32 count, bytes; the text ends at the first NUL. Written with its NUL, and as a count of 0
//                  when it is empty or would need a count above 65535. On reading, a count above that is passed
//                  over as an empty text.
//   KUID           the stream form: u32 content number, u32 packed word
//
//   record         KUID; strings category class, name, regions, eras, keywords, edit path, pack path, pack name,
//                  local path; the fixed part; strings description, local name
//   fixed part     KUID of the map; 17 bytes of 0 or 1 (the bits of the two flag bytes from bit 0 up, then
//                  "may be listed"); u32 folder size; f32 build; i8 rating; u64 installed; u64 modified
//
// The size is written as a placeholder first, so that a file that was cut short never passes for a whole one.

inline constexpr uint32_t kIndexMagic = 0xCEEBA2DB;
inline constexpr uint32_t kIndexVersion = 19;
inline constexpr uint32_t kIndexSizePlaceholder = 0xFEEDCEEB;
inline constexpr size_t kIndexSizeAt = 8;
inline constexpr size_t kIndexHeaderSize = 16;
inline constexpr size_t kIndexTailSize = 12;

inline constexpr uint32_t kSectionVersion = 0;
inline constexpr uint32_t kStationVersion = 1;
inline constexpr uint32_t kArchiveEntryVersion = 1;
inline constexpr uint32_t kArchiveEndMark = 0x41494E65;

inline constexpr size_t kTextsBeforeFixed = 9;
inline constexpr size_t kFixedSize = 8 + 17 + 4 + 4 + 1 + 8 + 8;
inline constexpr uint32_t kMaxIndexString = 65535;

inline constexpr const char* kIndexName = "assets.tdx";
inline constexpr const char* kIndexWrittenName = "cache/assets.tdx";  // while it is being written
inline constexpr const char* kIndexBackupName = "cache/assets.bku";   // moved aside at the first change

}  // namespace morvex
