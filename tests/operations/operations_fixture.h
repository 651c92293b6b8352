#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/database.h"
#include "database/catalogue/folder_setup.h"
#include "database/operations/commit.h"
#include "database/operations/install.h"
#include "database/operations/open_asset.h"
#include "frontend/messages/results_log.h"
#include "tests/scratch_folder.h"

namespace morvex {

inline const KUID kAsset(100, 200, 0);
inline const KUID kOther(100, 201, 0);
inline const std::string kArt(300, 'b');  // long enough to be coded

// A fresh installation with a running database, and short ways to make assets and to see what became of them.
// A message is its key without "$zeb_" and its first argument.
class OperationsTest : public testing::Test {
 protected:
  using Files = std::map<std::string, std::string>;  // relative path and content

  OperationsTest() {
    std::string key;
    std::string texts =
        "$zeb_cloned \"cloned %s %s\"\n$zeb_archive_version \"archive_version %u\"\n"
        "$zeb_archive_unreadable \"archive_unreadable\"\n$zeb_upload_complete \"upload_complete\"\n"
        "$zeb_upload_failed_network \"upload_failed_network %d\"\n";
    std::istringstream keys(
        "edit_perm copy_file_error not_committed commit_perm commit_open_for_edit commit_missing_config "
        "commit_duplicate_config commit_invalid_files commit_file_error unreadable_cdp unable_read_config_at "
        "skipping_asset_at already_installed skipping_open_for_edit skipping_built_in skipping_dls_item "
        "write_error open_file_error commit_database_error overwrite_error failed_install installed "
        "clone_perm "
        "not_local_owner asset_out_of_date unable_to_open unable_read_files already_open_for_edit "
        "package_file_bad_ext package_file_bad_name asset_not_local "
        "asset_not_built_in asset_already_on_dls upload_asset_faulty upload_asset_not_local "
        "upload_read_error "
        "upload_failed_generic");
    while (keys >> key)
      texts += "$zeb_" + key + " \"" + key + " %s\"\n";
    Write("data/interfacetext.txt", texts);
    Start();
  }
  ~OperationsTest() override { Stop(); }

  void Start() {
    ZEBPrepareFolders(root_.path());
    ZEBInit({.root = root_.path()});
  }
  void Stop() {
    ZEBShutdown();
    ZEBReleaseFolders();
  }

  std::string At(const std::string& path) const { return root_ / path; }
  bool Has(const std::string& path) const { return std::filesystem::exists(At(path)); }
  void Write(const std::string& path, const std::string& content) const {
    std::filesystem::create_directories(std::filesystem::path(At(path)).parent_path());
    std::ofstream(At(path), std::ios::binary) << content;
  }
  // All files below a folder; of configurations only that they are there.
  Files Tree(const std::string& folder) const {
    Files files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(At(folder))) {
      if (entry.is_directory()) continue;
      const std::string path = entry.path().lexically_relative(At(folder)).string();
      std::ifstream in(entry.path(), std::ios::binary);
      files[path] = path.starts_with("config.") ? "" : std::string{std::istreambuf_iterator<char>(in), {}};
    }
    return files;
  }
  // The names right below a folder, each followed by a blank.
  std::string Names(const std::string& folder) const {
    std::string names;
    for (const auto& entry : std::filesystem::directory_iterator(At(folder)))
      names += entry.path().filename().string() + " ";
    return names;
  }

  ZEBAssetInfo* Record(const KUID& kuid) { return ZEBAssetCache::Instance().Find(kuid); }
  std::string EditPath(const KUID& kuid) { return std::string(Record(kuid)->EditPath()); }
  std::string LocalPath(const KUID& kuid) { return std::string(Record(kuid)->LocalPath()); }
  // Which copies an asset has.
  std::string State(const KUID& kuid) {
    const ZEBAssetInfo* record = Record(kuid);
    if (record == nullptr) return "unknown";
    if (!record->IsInstalled()) return "known";
    return std::string(record->IsOpen() ? "open " : "") + (record->HasLocalCopy() ? "local " : "") +
           (record->IsInPack() ? "pack " : "");
  }

  // What was said since the last call: severity and text of each entry.
  std::string Said() {
    std::string words;
    log_.ForEach([&](const ResultsLog::Entry& entry) {
      words += std::to_string(static_cast<uint32_t>(entry.severity)) + " " + entry.text + "\n";
    });
    log_ = ResultsLog();
    return words;
  }

  // A folder as a creator has it.
  void WriteSource(const std::string& folder, const KUID& kuid, const std::string& build = "2.9") {
    Write(folder + "/config.txt", "kuid " + kuid.TagText() + "\nkind \"scenery\"\nmorvex-build " + build +
                                      "\nusername \"Big Engine (blue)\"\n");
    Write(folder + "/Mesh.IM", "mesh");
    Write(folder + "/art/Blue.TGA", kArt);
    Write(folder + "/Thumbs.db", "passed over");
  }
  size_t InstallFolder(const std::string& folder) {
    return ZEBInstallFromPath(At(folder), &log_, nullptr, nullptr);
  }
  bool Commit(const KUID& kuid, uint32_t flags = 0) {
    ZEBAssetHandle handle = ZEBOpenAsset(kuid, true, nullptr);
    return ZEBCommitAssetEdits(handle, flags, &log_, nullptr);
  }
  // An asset in local/, and nothing else.
  void MakeCommitted(const KUID& kuid, const std::string& build = "2.9") {
    WriteSource("source", kuid, build);
    ASSERT_TRUE(InstallFolder("source") == 1 && Commit(kuid)) << Said();
    std::filesystem::remove_all(At("source"));
    Said();
  }

  ScratchFolder root_;
  ResultsLog log_;
};

}  // namespace morvex
