// How the tables come into memory: from the index, or from what a run left that didn't come to its end.

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/database_state.h"
#include "database/catalogue/folder_scan.h"
#include "database/catalogue/index_format.h"
#include "database/catalogue/index_reader.h"
#include "database/catalogue/temporary_folders.h"
#include "engine/file.h"
#include "engine/path.h"

namespace morvex {
namespace {

std::string InRoot(const char* name) {
  return Nox::Path::AddPath(State().settings.root, name);
}

bool ReadIndexAt(const char* name) {
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  if (ReadIndex(InRoot(name), cache)) return true;
  cache.Clear();
  return false;
}

// From now on `assets.tdx` is missing until the next write, which tells the next run, should this one die, to look
// at the folders. A file that couldn't be read never takes the place of a backup that could.
void MoveAside(const std::string& index) {
  const std::string backup = InRoot(kIndexBackupName);
  Nox::File::Unlink(InRoot(kIndexWrittenName));
  Nox::File::Unlink(backup);
  Nox::File::Rename(index, backup);
}

}  // namespace

void BackUpIndex() {
  if (!State().started) return;
  const std::string index = InRoot(kIndexName);
  // A whole index that couldn't get its name is the newest there is.
  if (State().writeFailed || !Nox::File::Exists(index) || Nox::File::IsFolder(index)) return;
  MoveAside(index);
}

void ZEBReloadDatabase() {
  ZEBAssetCache::Instance().Clear();
  ZEBLoadDatabase();
}

void ZEBLoadDatabase() {
  DatabaseState& state = State();
  ZEBReadWriteLock& lock = ZEBAssetCache::Instance().lock;
  state.loading = true;
  lock.Acquire(ZEBReadWriteLock::Mode::kWrite);
  state.changed = false;
  if (ReadIndexAt(kIndexName)) {
    ZEBMarkChanged(kContentChanged);
  } else if (state.settings.rebuildIfMissing && !ZEBRecoverDatabase()) {
    ZEBRebuildDatabase();
  }
  lock.Release();
  state.loading = false;
}

bool ZEBRecoverDatabase() {
  const std::string written = InRoot(kIndexWrittenName);
  const std::string backup = InRoot(kIndexBackupName);
  if (ReadIndexAt(kIndexWrittenName)) {
    Nox::File::Unlink(backup);
    Nox::File::Rename(written, backup);
  } else if (!ReadIndexAt(kIndexBackupName)) {
    return false;
  }
  // The backup is what this run stands on; an index that couldn't be read makes way without taking its place.
  if (Nox::File::Exists(InRoot(kIndexName)))
    Nox::File::Rename(InRoot(kIndexName), InRoot("cache/assets.refused"));

  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  PutBackTemporaryFolders();
  for (size_t i = 0; i < cache.records.Places(); ++i) {
    ZEBAssetInfo& record = cache.records[i];
    if (record.IsInstalled()) cache.Refresh(record);
  }
  ScanAssetFolders("local", AssetFolderKind::kLocal);
  ScanAssetFolders("editing", AssetFolderKind::kEditing);
  cache.SortView();
  ZEBMarkChanged(kContentChanged);
  ZEBInternalWriteDatabase();
  return true;
}

void ZEBRebuildDatabase() {
  ScanWorldPacks();
  ScanPack("trains");
  ScanAssetFolders("local", AssetFolderKind::kLocal);
  ScanAssetFolders("editing", AssetFolderKind::kEditing);
  ZEBAssetCache::Instance().SortView();
  ZEBMarkChanged(kContentChanged);
}

}  // namespace morvex
