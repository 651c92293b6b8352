// How the tables get to the disk: whole under a temporary name, then under their own.

#include <cstdio>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/database_state.h"
#include "database/catalogue/index_format.h"
#include "database/catalogue/index_writer.h"
#include "database/catalogue/kuid_generator.h"
#include "engine/file.h"
#include "engine/path.h"

namespace morvex {
namespace {

class ReadHold {
 public:
  explicit ReadHold(ZEBReadWriteLock& lock) : lock_(lock) { lock_.Acquire(ZEBReadWriteLock::Mode::kRead); }
  ~ReadHold() { lock_.Release(); }
  ReadHold(const ReadHold&) = delete;
  ReadHold& operator=(const ReadHold&) = delete;

 private:
  ZEBReadWriteLock& lock_;
};

bool PutInPlace(const std::string& written, const std::string& index) {
  if (Nox::File::Exists(index) && !Nox::File::Unlink(index)) {
    std::printf("ZEBThread_WriteDatabaseLocal> Unlink(\"%s\") failed\n", index.c_str());
  }
  if (!Nox::File::Rename(written, index)) {
    std::printf("ZEBThread_WriteDatabaseLocal> Rename(\"%s\", \"%s\") failed\n", written.c_str(),
                index.c_str());
    return false;
  }
  Nox::File::SyncFolder(State().settings.root);
  return true;
}

}  // namespace

bool ZEBInternalWriteDatabase() {
  DatabaseState& state = State();
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  const ReadHold hold(cache.lock);
  state.changed = false;
  const std::string folder = Nox::Path::AddPath(state.settings.root, "cache");
  const std::string written = Nox::Path::AddPath(state.settings.root, kIndexWrittenName);
  Nox::File::Md(folder);
  Nox::File::Unlink(written);
  ZEBSyncBaseKuid();
  if (!WriteIndex(written, cache)) {
    Nox::File::Unlink(written);  // a full disk gets its room back; the backup is what the next run stands on
    ZEBMarkChanged(kContentChanged);
    return false;
  }
  Nox::File::SyncFolder(folder);
  if (!PutInPlace(written, Nox::Path::AddPath(state.settings.root, kIndexName))) {
    state.writeFailed = true;
    ZEBMarkChanged(kContentChanged);
    return false;
  }
  state.writeFailed = false;
  state.seenGeneration = Ownership().RaiseGeneration();
  if (state.changed) std::puts("ZEBInternalWriteDatabase> asset cache marked changed during write operation");
  return true;
}

}  // namespace morvex
