#include "database/operations/upload.h"

#include <chrono>
#include <string>
#include <utility>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/kuid_generator.h"
#include "database/operations/make_package.h"
#include "frontend/messages/asset_message.h"
#include "net/transfer/download_manager.h"
#include "packages/package_archive.h"
#include "tagdata/chump_file.h"

namespace morvex {
namespace {

constexpr const char* kUploadPath = "/games/gamefiles/morvex/scripts/DLS_CDP_upload.php";
constexpr const char* kPackageName = "upload.cdp";
constexpr std::chrono::milliseconds kPollTime(100);

const Nox::PString kResult("result");

// Why an asset may not be uploaded, as the key of a message; null if it may.
const char* FindObstacle(const KUID& kuid) {
  const ZEBAssetLock lock(false);
  const ZEBAssetInfo* const record = lock ? ZEBAssetCache::Instance().Find(kuid) : nullptr;
  if (record == nullptr || !record->IsInstalled()) return "$zeb_asset_not_local";
  if (record->Has(AssetFlag::kBuiltIn)) return "$zeb_asset_not_built_in";
  if (record->Has(AssetState::kOnStation)) return "$zeb_asset_already_on_dls";
  if (record->IsOpen()) return "$zeb_already_open_for_edit";
  if (record->Has(AssetFlag::kHasErrors)) return "$zeb_upload_asset_faulty";
  return kuid.userId == ZEBLocalUser() ? nullptr : "$zeb_upload_asset_not_local";
}

// The package of all assets, as a file's image. Empty if one of them may not go, or there are none.
std::string MakeUploadPackage(const KUIDList& kuids, KUIDList& packaged, ResultsLog& log) {
  PackageBuilder package;
  bool refused = false;
  const auto refuse = [&](const KUID& kuid, const char* key, std::string_view argument) {
    AddAssetMessage(log, Severity::kError, kuid, key, argument);
    refused = true;
  };
  for (const KUID& kuid : kuids) {
    if (const char* const obstacle = FindObstacle(kuid)) {
      refuse(kuid, obstacle, kuid.TagText());
      continue;
    }
    const Nox::PString fault = package.Add(ZEBMakeAssetPackage(kuid, &log));
    if (fault.Empty()) {
      packaged.Add(kuid);
    } else {
      refuse(kuid, "$zeb_upload_read_error", fault.View());
    }
  }
  if (refused || packaged.IsEmpty()) return {};
  return ChumpImage(package.Finish());
}

TagContainer MakeForm(std::string package) {
  TagContainer file;
  file.SetRaw(Nox::PString("filedata"), ACSRawDataCore::TakeText(std::move(package)));
  file.SetString(Nox::PString("filename"), kPackageName);
  TagContainer form;
  form.SetContainer(Nox::PString("UL_File"), std::move(file));
  constexpr std::pair<const char*, const char*> kFields[] = {
      {"UL_LanguageID", "EN"}, {"UL_PreviewArea", "1"},     {"Agreetotext", "1"},
      {"UL_ProductID", "5"},   {"UL_UploadType", "INSERT"}, {"ProfileGroupID", "0"},
  };
  for (const auto& [name, value] : kFields)
    form.SetString(Nox::PString(name), value);
  return form;
}

URL UploadUrl(const DownloadManager& downloads) {
  const DownloadSettings settings = downloads.Settings();
  const bool own = !settings.uploadServer.host.empty();
  URL url = ServerUrl(own ? settings.uploadServer : settings.webServer);
  url.SetPath(kUploadPath);
  return url;
}

// The server says what went wrong in `result`, and leaves that out if nothing did.
bool ReadFailure(const DownloadTask& task, std::string& failure) {
  std::string path;
  Nox::PString name;
  TagContainer answer;
  if (!task.GetResult(path, name) || !answer.Load(Nox::PString(), path, "txt")) return false;
  failure = answer.GetText(kResult);
  return answer.HasTag(kResult);
}

}  // namespace

void ZEBUploadAssets(const KUIDList& kuids, ResultsLog& log, DownloadManager& downloads,
                     const UploadWatch& watch) {
  KUIDList sent;
  std::string package = MakeUploadPackage(kuids, sent, log);
  if (package.empty()) return;
  const std::uint64_t size = package.size();

  const DownloadHandle task = downloads.PostData(UploadUrl(downloads), MakeForm(std::move(package)));
  if (!task) return;
  while (!task->WaitUntilFinished(kPollTime)) {
    if (watch) watch(*task, size);
  }
  const auto fail = [&](const char* key, const auto& argument) {
    log.Add(Severity::kError, MorvexPropertyPtr(), GetInterfaceString(key), 0, argument);
  };
  const NetError error = task->GetError();
  std::string failure;
  if (error != NetError::kNone) {
    fail("$zeb_upload_failed_network", static_cast<uint32_t>(error));
  } else if (ReadFailure(*task, failure)) {
    fail("$zeb_upload_failed_generic", failure);
  } else {
    for (const KUID& kuid : sent)
      AddAssetMessage(log, Severity::kNote, kuid, "$zeb_upload_complete");
  }
}

}  // namespace morvex
