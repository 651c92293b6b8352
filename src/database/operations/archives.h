#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tagdata/kuid_list.h"

namespace morvex {

class ResultsLog;
class TStream;
struct ZEBArchive;

// Asset archives: files that hold many assets in package form, to take assets off the disk and to bring them back
// later. The database keeps a list of them. Every operation takes the database lock itself; `log` may be null. Paths
// are absolute, sizes are bytes.

// Writes the file of an archive. True if all its assets could be packaged; `log` is told of each that couldn't and
// that the file lacks.
[[nodiscard]] bool ZEBWriteArchive(const ZEBArchive& archive, TStream& stream, ResultsLog* log);

// Installs those assets of a file that are wanted, over what is installed, and commits what is new. Takes each that
// was installed out of `wanted`; what stays isn't in the file or couldn't be installed, which `log` is told.
// `outFlag` is that of ZEBCommitAssetEdits.
void ZEBRestoreFromArchive(KUIDList& wanted, TStream& stream, ResultsLog* log, uint8_t* outFlag);
void ZEBRestoreFromArchive(KUIDList& wanted, std::string_view path, ResultsLog* log, uint8_t* outFlag);

// How making an archive ended.
enum class ArchiveResult {
  kMade,
  kExists,       // there is something at the path already, which may be all that is left of other assets
  kRefused,      // an asset is named twice, or all are more than an archive takes (ZEBArchive::kMaxTotalSize)
  kNotPackaged,  // `log` says which assets couldn't be packaged, and why
  kNotWritten,   // the file couldn't be written
};

// Makes an archive file of these assets and enters it into the list. Other results than kMade leave neither a new
// file nor an entry behind.
[[nodiscard]] ArchiveResult ZEBCreateArchive(std::string_view path, std::string_view name,
                                             const KUIDList& kuids, ResultsLog* log);

// The KUIDs of an archive file, in its order. False, with `log` told, if the file isn't one or is damaged.
[[nodiscard]] bool ZEBReadArchive(std::string_view path, KUIDList& kuids, ResultsLog* log);

// Enters an archive file into the list, or brings its entry in line with it. False, with no change and `log` told,
// if the file isn't one or is damaged.
[[nodiscard]] bool ZEBScanArchive(std::string_view path, ResultsLog* log);

// An archive of the list, as it was when asked.
struct ArchiveStatus {
  std::string path;
  std::string name;
  uint32_t serial = 0;
  uint64_t totalSize = 0;  // by estimate
  KUIDList kuids;
  bool atHand = false;  // the file is there, and is the one that was entered
};

// All archives of the list, in its order.
[[nodiscard]] std::vector<ArchiveStatus> ZEBListArchives();
// Takes an archive off the list; its file stays. False if there is none of that serial.
bool ZEBForgetArchive(uint32_t serial);
// The archives that must be at hand to restore all of `wanted`, few of them. What stays in `wanted` is in none.
[[nodiscard]] std::vector<ArchiveStatus> ZEBSelectArchives(KUIDList& wanted);

}  // namespace morvex
