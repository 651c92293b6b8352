#include "database/operations/archives.h"

#include "database/catalogue/archive_file.h"
#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/database.h"
#include "database/operations/install_asset.h"
#include "database/operations/make_package.h"
#include "database/operations/operation_report.h"
#include "engine/file.h"
#include "engine/path.h"
#include "tagdata/chump_file.h"
#include "tagdata/file_stream.h"
#include "tagdata/replace_stream.h"

namespace morvex {
namespace {

ZEBArchiveList& List() {
  return ZEBAssetCache::Instance().archives;
}

template <typename... Args>
void Say(ResultsLog* log, std::string_view key, const Args&... args) {
  if (log != nullptr) log->Add(Severity::kError, MorvexPropertyPtr(), GetInterfaceString(key), 0, args...);
}

void SayUnreadable(ResultsLog* log) {
  Say(log, "$zeb_archive_unreadable");
}

bool OpenForReading(TFile& file, std::string_view path, ResultsLog* log) {
  if (file.Open(path, Nox::OpenMode::kRead)) return true;
  SayUnreadable(log);
  return false;
}

// Reads the header, and says what is wrong with it.
bool ReadHeader(TStream& stream, ArchiveHeader& header, ResultsLog* log) {
  header = ReadArchiveHeader(stream);
  if (header.magic == kArchiveMagic && header.version == kArchiveVersion) return true;
  if (header.magic != kArchiveMagic) {
    SayUnreadable(log);
  } else {
    Say(log, "$zeb_archive_version", header.version);
  }
  return false;
}

bool RestoreItem(const KUID& kuid, TStream& stream, ResultsLog* log, uint8_t* outFlag) {
  const PackageItem item(ReadChumpFile(stream));
  if (item.IsEmpty() || item.GetKUID() != kuid) {
    OperationReport(log, kuid).Error("$zeb_archive_unreadable");
    return false;
  }
  KUID installed;
  ZEBInstallAsset(installed, item, log, kInstallReplace | kInstallCommit, outFlag);
  return !installed.IsNull();
}

bool IsAtHand(const ZEBArchive& archive) {
  TFile file;
  return file.Open(archive.path, Nox::OpenMode::kRead) && archive.Matches(file);
}

ArchiveStatus StatusOf(const ZEBArchive& archive) {
  ArchiveStatus status;
  status.path = archive.path;
  status.name = archive.name;
  status.serial = archive.serial;
  status.kuids = archive.kuids;
  for (const KUID& kuid : archive.kuids)
    status.totalSize += ZEBArchive::SizeOf(kuid);
  status.atHand = IsAtHand(archive);
  return status;
}

ArchiveResult Fill(ZEBArchive& archive, const KUIDList& kuids, ResultsLog* log) {
  for (const KUID& kuid : kuids) {
    if (!archive.Add(kuid)) return ArchiveResult::kRefused;
  }
  ReplaceStream file;
  if (!file.Open(archive.path)) return ArchiveResult::kNotWritten;
  if (!ZEBWriteArchive(archive, file, log))
    return file.WriteFailed() ? ArchiveResult::kNotWritten : ArchiveResult::kNotPackaged;
  return file.Commit() ? ArchiveResult::kMade : ArchiveResult::kNotWritten;
}

}  // namespace

bool ZEBWriteArchive(const ZEBArchive& archive, TStream& stream, ResultsLog* log) {
  return archive.Write(stream, [log](const KUID& kuid) { return ZEBMakeAssetPackage(kuid, log).soup; });
}

void ZEBRestoreFromArchive(KUIDList& wanted, TStream& stream, ResultsLog* log, uint8_t* outFlag) {
  ArchiveHeader header;
  if (!ReadHeader(stream, header, log)) return;
  ArchiveEntries entries(stream);
  while (entries.Next()) {
    const KUID kuid = entries.Kuid();
    if (wanted.Contains(kuid) && RestoreItem(kuid, stream, log, outFlag)) wanted.Remove(kuid);
  }
  if (entries.IsDamaged()) SayUnreadable(log);
}

void ZEBRestoreFromArchive(KUIDList& wanted, std::string_view path, ResultsLog* log, uint8_t* outFlag) {
  TFile file;
  if (OpenForReading(file, path, log)) ZEBRestoreFromArchive(wanted, file, log, outFlag);
}

ArchiveResult ZEBCreateArchive(std::string_view path, std::string_view name, const KUIDList& kuids,
                               ResultsLog* log) {
  const ZEBAssetLock lock(true);
  if (!lock) return ArchiveResult::kNotWritten;
  if (Nox::File::Exists(path)) return ArchiveResult::kExists;
  ZEBArchive& archive = List().Add();
  archive.number = List().FreeNumber();
  archive.path = path;
  archive.name = name;
  const ArchiveResult result = Fill(archive, kuids, log);
  archive.mounted = result == ArchiveResult::kMade;
  if (!archive.mounted) List().Remove(archive);
  ZEBMarkChanged(kContentChanged);
  return result;
}

bool ZEBReadArchive(std::string_view path, KUIDList& kuids, ResultsLog* log) {
  TFile file;
  ArchiveHeader header;
  if (!OpenForReading(file, path, log) || !ReadHeader(file, header, log)) return false;
  ArchiveEntries entries(file);
  while (entries.Next())
    kuids.Add(entries.Kuid());
  if (entries.IsDamaged()) SayUnreadable(log);
  return !entries.IsDamaged();
}

bool ZEBScanArchive(std::string_view path, ResultsLog* log) {
  const ZEBAssetLock lock(true);
  TFile file;
  ArchiveHeader header;
  if (!lock || !OpenForReading(file, path, log) || !ReadHeader(file, header, log)) return false;
  ZEBArchive found;
  ZEBArchive* const known = List().FindBySerial(header.serial);
  ZEBArchive& archive = known != nullptr ? *known : found;
  if (!archive.Scan(file)) {
    SayUnreadable(log);
    return false;
  }
  archive.path = path;
  archive.serial = header.serial;
  if (known != nullptr) return true;
  archive.number = List().FreeNumber();
  archive.name = Nox::Path::GetFileName(path);
  List().Append(std::move(archive));
  return true;
}

std::vector<ArchiveStatus> ZEBListArchives() {
  const ZEBAssetLock lock(false);
  std::vector<ArchiveStatus> all;
  for (const auto& archive : List().Archives())
    all.push_back(StatusOf(*archive));
  return all;
}

bool ZEBForgetArchive(uint32_t serial) {
  const ZEBAssetLock lock(true);
  ZEBArchive* const archive = List().FindBySerial(serial);
  if (archive == nullptr) return false;
  List().Remove(*archive);
  return true;
}

std::vector<ArchiveStatus> ZEBSelectArchives(KUIDList& wanted) {
  const ZEBAssetLock lock(true);  // a selection counts in the archives
  std::vector<ZEBArchive*> chosen;
  List().Select(wanted, chosen);
  std::vector<ArchiveStatus> all;
  for (const ZEBArchive* archive : chosen)
    all.push_back(StatusOf(*archive));
  return all;
}

}  // namespace morvex
