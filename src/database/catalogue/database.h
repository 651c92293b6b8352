#pragma once

#include <cstdint>
#include <string>

namespace morvex {

// What changed since the database lock was last free.
enum ChangeKind : uint32_t { kContentChanged = 1, kSizesChanged = 2 };

struct ZEBStartupSettings {
  std::string root;
  // Both may be null. Called by long operations, and when the lock becomes free after changes.
  void (*progressHook)() = nullptr;
  void (*finishHook)(uint32_t kinds) = nullptr;
  bool rebuildIfMissing = true;
  bool useDownloadStation = true;
};

// Starts the database: joins the processes of the installation and loads the index on a thread of its own, for
// which the first ZEBAssetLock waits. Does nothing when started. ZEBPrepareFolders must have run.
void ZEBInit(const ZEBStartupSettings& settings);

// Waits for the load, writes the index if it changed, frees all tables and leaves the installation to others.
// False if the index couldn't be written: what this run changed is then found from the folders by the next one.
bool ZEBShutdown();

bool ZEBIsStarted();
const ZEBStartupSettings& ZEBSettings();
// Calls the progress hook, if there is one.
void ZEBReportProgress();

// To be called after each change of a table, under a write hold. The first one since a load or a write moves the
// index file aside, which tells the next run, should this one die, that the file no longer holds.
void ZEBMarkChanged(uint32_t kinds);
bool ZEBIsChanged();

// The load and its ways out, under the write lock. ZEBAssetLock calls the first.
void ZEBReloadDatabase();
void ZEBLoadDatabase();
bool ZEBRecoverDatabase();
void ZEBRebuildDatabase();
bool ZEBIsLoading();

// Writes the index now, on this thread; false if it couldn't be written.
bool ZEBInternalWriteDatabase();
// The same on a thread of its own, if anything changed.
void ZEBStartBackgroundWrite();
void ZEBThread_WriteDatabaseLocal();

// Lets other processes have the installation. The next ZEBAssetLock takes it again.
void ZEBReleaseOwnership();

}  // namespace morvex
