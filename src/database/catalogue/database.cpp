#include "database/catalogue/database.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/database_state.h"
#include "database/catalogue/kuid_generator.h"
#include "engine/file.h"
#include "engine/find.h"
#include "engine/path.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

// Leftovers of edits that didn't begin. Only the owner of the installation knows that nobody is about to fill them.
void RemoveEmptyEdits() {
  const std::string editing = Nox::Path::AddPath(State().settings.root, "editing");
  const auto entries = Nox::ListFolder(editing);
  if (!entries) return;
  for (const Nox::DirEntry& entry : *entries) {
    if (entry.IsDir() && !entry.isLink) Nox::File::Rd(Nox::Path::AddPath(editing, entry.name));
  }
}

void Join(std::thread& thread) {
  if (thread.joinable()) thread.join();
}

}  // namespace

DatabaseState& State() {
  static DatabaseState state;
  return state;
}

void ZEBInit(const ZEBStartupSettings& settings) {
  DatabaseState& state = State();
  if (state.started) return;
  state.settings = settings;
  state.seenGeneration = DatabaseState::kNeverLoaded;
  state.emptiedEditing = false;
  Ownership().Join(settings.root);
  state.started = true;
  state.specs = std::make_unique<KoolthingzSpecDatabase>();
  state.firstLock = std::thread([] { const ZEBAssetLock lock(true); });
}

bool ZEBShutdown() {
  DatabaseState& state = State();
  if (!state.started) return true;
  Ownership().Stop();  // a load goes on to its end; only waiting for another process stops
  Join(state.firstLock);
  Join(state.writer);
  const bool written = !state.changed || ZEBInternalWriteDatabase();
  state.specs.reset();
  state.started = false;
  ZEBAssetCache::Instance().Clear();
  state.changed = false;
  state.changeKinds = 0;
  state.writeFailed = false;
  state.settings = ZEBStartupSettings();
  ZEBForgetRoot();
  MorvexLog::Message("ZEBDownloadStation::Close");  // whoever runs its client has ended that before
  Ownership().Leave();
  return written;
}

bool ZEBIsStarted() {
  return State().started;
}
bool ZEBIsLoading() {
  return State().loading;
}
bool ZEBIsChanged() {
  return State().changed;
}
const ZEBStartupSettings& ZEBSettings() {
  return State().settings;
}

void ZEBReportProgress() {
  if (State().settings.progressHook != nullptr) State().settings.progressHook();
}

void ZEBMarkChanged(uint32_t kinds) {
  DatabaseState& state = State();
  ZEBAssetCache::Instance().NoteAccess();
  {
    const std::lock_guard guard(state.changing);
    if (!state.changed) {
      state.changed = true;
      BackUpIndex();
    }
  }
  state.changeKinds |= kinds;
}

bool TakeInstallation(bool tryOnly) {
  DatabaseState& state = State();
  if (!Ownership().Acquire(tryOnly)) return false;
  if (!state.emptiedEditing) RemoveEmptyEdits();
  state.emptiedEditing = true;
  const uint32_t generation = Ownership().Generation();
  if (state.seenGeneration == generation) return true;
  state.seenGeneration = generation;
  ZEBReloadDatabase();
  return true;
}

void ReleaseWriteHold(ZEBReadWriteLock& lock) {
  DatabaseState& state = State();
  const uint32_t kinds = state.changeKinds.exchange(0);
  const bool free = lock.Release();
  if (kinds == 0) return;
  if (!free) {
    state.changeKinds |= kinds;
  } else if (state.settings.finishHook != nullptr) {
    state.settings.finishHook(kinds);
  }
}

void ZEBReleaseOwnership() {
  ZEBReadWriteLock& lock = ZEBAssetCache::Instance().lock;
  lock.Acquire(ZEBReadWriteLock::Mode::kWrite);
  if (!State().changed || ZEBInternalWriteDatabase()) Ownership().Release();
  lock.Release();
}

void ZEBStartBackgroundWrite() {
  DatabaseState& state = State();
  Join(state.writer);
  if (state.changed) state.writer = std::thread(&ZEBThread_WriteDatabaseLocal);
}

void ZEBThread_WriteDatabaseLocal() {
  ZEBInternalWriteDatabase();
}

}  // namespace morvex
