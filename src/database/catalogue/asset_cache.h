#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <span>

#include "database/catalogue/archive_list.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_notes.h"
#include "database/catalogue/author_table.h"
#include "database/catalogue/dependency_table.h"
#include "database/catalogue/download_station.h"
#include "database/catalogue/kuid_index.h"
#include "database/catalogue/obsolete_map.h"
#include "database/catalogue/read_write_lock.h"
#include "database/catalogue/record_store.h"
#include "database/catalogue/sorted_view.h"
#include "engine/owned_bytes.h"
#include "tagdata/tag_container.h"

namespace morvex {

// The tables of the database. One object, made by the first call of Instance, filled by the load and emptied by
// the shutdown. All members are used under a ZEBAssetLock, unless they say otherwise; what is computed on first
// need (the view, the remembered answers) has a mutex of its own and may be asked for under a read hold.
class ZEBAssetCache {
 public:
  static ZEBAssetCache& Instance();

  // The record, or null. Notes the time of the access.
  ZEBAssetInfo* Find(const KUID& kuid);
  // A new record, at the end of the view and not sorted in. A null `kuid` takes a new one from ZEBGenerateKUID.
  // Null if the KUID is known.
  ZEBAssetInfo* Create(KUID kuid);
  // Takes the record out of all tables. Its memory stays until the tables are cleared.
  void Remove(ZEBAssetInfo& record);
  // Adds what a scan of the folders found, with the configuration it was read from; a known KUID gets the new
  // record's paths, unless they contradict its own.
  void AddScanned(ZEBAssetInfo&& found, const TagContainer& config);

  // After anything that may have changed an asset's folders or its configuration. False if the configuration
  // couldn't be read, or is being edited beside a committed one; the record keeps its values then.
  bool Refresh(ZEBAssetInfo& record);
  // Brings the tables in line with the record. With `full` its configuration is looked at again.
  void UpdateDerived(ZEBAssetInfo& record, bool full);
  void UpdateObsoletes(ZEBAssetInfo& record);
  void RemoveObsoletes(ZEBAssetInfo& record);
  // Clears what all dependants, directly or further up, remember about missing and faulty dependencies.
  void ForgetDependants(const KUID& kuid);

  // The configuration of a record; the last one read is kept.
  TagContainer Config(const ZEBAssetInfo& record);

  // To be called before the display name of a record changes; a record does so by itself.
  void NoteRename(ZEBAssetInfo& record) { view_.NoteRename(record); }
  // Sorts in what was added and renamed since the last time.
  void SortView();
  // Sorted by display name, but for what came in since; made on first use.
  const SortedView& View();

  // The remembered answers; computed on first need.
  bool MissingDeps(ZEBAssetInfo& record);
  bool FaultyDeps(ZEBAssetInfo& record);
  bool IsArchived(ZEBAssetInfo& record);
  bool IsObsoleted(ZEBAssetInfo& record);
  bool IsLatest(const ZEBAssetInfo& record) const;

  size_t Count() const { return index_.Size(); }
  uint64_t LastAccess() const { return lastAccess_.load(std::memory_order_relaxed); }
  void NoteAccess();

  void Clear();

  RecordStore records;
  ZEBObsoleteMap obsoletes;
  DependencyTable dependencies;
  AssetNotes notes;
  AuthorTable authors;
  ZEBArchiveList archives;
  DownloadStationState station;
  ZEBReadWriteLock lock;

 private:
  friend class IndexReader;

  ZEBAssetInfo& Keep(ZEBAssetInfo&& record);
  void UpdateDerivedFrom(ZEBAssetInfo& record, const TagContainer& config);
  void UpdateObsoletesFrom(const ZEBAssetInfo& record, const TagContainer& config);
  bool Merge(ZEBAssetInfo& record, const ZEBAssetInfo& found);
  void DropConfigOf(const ZEBAssetInfo& record);
  void KeepConfig(const ZEBAssetInfo& record, const TagContainer& config);
  bool DependencyAnswer(ZEBAssetInfo& record, bool faulty);
  void ComputeObsoleted();

  Nox::OwnedBytes file_;  // the loaded index, in which records and tables have their bytes
  KuidIndex index_;
  SortedView view_;
  std::atomic<bool> viewMade_{false};
  std::atomic<bool> obsoletedKnown_{false};
  std::atomic<uint64_t> lastAccess_{0};
  std::recursive_mutex computing_;  // innermost; held while an answer is computed
  const ZEBAssetInfo* configOwner_ = nullptr;
  TagContainer config_;
};

// Drops the notes about an asset. Under a write hold.
void ZEBForgetAssetNotes(const KUID& kuid);

// The asset that stands in for `kuid`, or `kuid` itself.
KUID ZEBFindReplacement(const KUID& kuid);

}  // namespace morvex
