#include "tests/catalogue/installation.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "database/catalogue/asset_query.h"
#include "database/catalogue/folder_setup.h"

namespace morvex::test {

namespace fs = std::filesystem;

void Installation::Start() {
  ZEBPrepareFolders(scratch_.path());
  ZEBStartupSettings settings;
  settings.root = scratch_.path();
  ZEBInit(settings);
  const ZEBAssetLock lock(true);
}

bool Installation::Stop() {
  if (!ZEBIsStarted()) return true;
  const bool written = ZEBShutdown();
  ZEBReleaseFolders();
  return written;
}

bool Installation::Exists(std::string_view name) const {
  return fs::exists(Path(name));
}

void Installation::Write(std::string_view name, std::string_view content) const {
  fs::create_directories(fs::path(Path(name)).parent_path());
  std::ofstream(Path(name), std::ios::binary) << content;
}

std::string Installation::Read(std::string_view name) const {
  std::stringstream content;
  content << std::ifstream(Path(name), std::ios::binary).rdbuf();
  return content.str();
}

void Installation::Remove(std::string_view name) const {
  fs::remove_all(Path(name));
}

void Installation::Rename(std::string_view from, std::string_view to) const {
  fs::rename(Path(from), Path(to));
}

std::vector<std::string> Installation::List(std::string_view folder) const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(Path(folder)))
    names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

void Installation::AddAsset(std::string_view folder, std::string_view kuid, std::string_view name,
                            std::string_view more) const {
  std::ostringstream config;
  config << "kuid " << kuid << "\r\nusername \"" << name << "\"\r\nkind \"scenery\"\r\n" << more << "\r\n";
  Write(std::string(folder) + "/config.txt", config.str());
}

KUID Parse(std::string_view kuid) {
  return KUID(kuid, false);
}

ZEBAssetInfo& Record(std::string_view kuid) {
  ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(Parse(kuid));
  if (record == nullptr) throw std::runtime_error("no record of " + std::string(kuid));
  return *record;
}

std::string Copies(std::string_view kuid) {
  const ZEBAssetInfo* record = ZEBAssetCache::Instance().Find(Parse(kuid));
  if (record == nullptr) return "-";
  return std::string(record->IsOpen() ? "E" : "e") + (record->HasLocalCopy() ? "L" : "l") +
         (record->IsInPack() ? "P" : "p");
}

std::string ViewText() {
  KUIDList list;
  ZEBSearchAssets(ZEBAssetQuery(), list);
  std::string text;
  for (const KUID& kuid : list)
    text += (text.empty() ? "" : " ") + kuid.ToDelimited(':');
  return text;
}

}  // namespace morvex::test
