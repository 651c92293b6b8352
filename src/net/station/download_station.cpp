#include "net/station/download_station.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/database.h"
#include "engine/format.h"
#include "engine/time.h"
#include "net/station/asset_list.h"
#include "net/station/service_urls.h"
#include "net/station/station_answers.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

constexpr float kSecondsOfDay = 86400;

DownloadStationState& State() {
  return ZEBAssetCache::Instance().station;
}

// The first result that a finished task has, or nothing.
bool TakeResult(const DownloadHandle& task, std::string& path, std::string& name) {
  Nox::PString given;
  if (!task->GetResult(path, given)) return false;
  name = given.View();
  return true;
}

}  // namespace

bool ZEBDownloadStation::IsTooSoon() const {
  const ZEBAssetLock lock(false);
  return Nox::TimeStamp() < State().lastUpdateTime + kSecondsBetweenSearches;
}

bool ZEBDownloadStation::RequestUpdate() {
  if (search_) return true;
  updateRequested_ = true;
  nextAttempt_ = 0;
  return false;
}

void ZEBDownloadStation::Close() {
  for (DownloadHandle* task : {&search_, &list_, &ticket_, &profile_})
    task->Release();
}

bool ZEBDownloadStation::Idle(double now) {
  const ZEBAssetLock lock(true, true);
  if (!lock || !ZEBSettings().useDownloadStation) return false;
  if (search_ && search_->IsFinished()) EndSearch(now);
  if (!search_ && updateRequested_ && now > nextAttempt_) BeginAssetUpdateSearch();
  if (list_ && list_->IsFinished()) EndList(now);
  if (!list_ && !State().queuedUrls.empty() && now > nextAttempt_) StartList();
  if (ticket_ && ticket_->IsFinished()) EndTicket();
  if (profile_ && profile_->IsFinished()) EndProfile(now);
  if (!profile_ && now > nextProfileAttempt_) StartProfile();
  return true;
}

bool ZEBDownloadStation::IsDone() const {
  const ZEBAssetLock lock(false);
  const ZEBAssetCache& cache = ZEBAssetCache::Instance();
  return !search_ && !list_ && !ticket_ && !profile_ && !updateRequested_ &&
         cache.station.queuedUrls.empty() && cache.authors.PendingUserIds().empty();
}

std::string ZEBDownloadStation::TakeFailures() {
  return std::exchange(failures_, {});
}

void ZEBDownloadStation::NoteFailure(const DownloadTask& task) {
  Nox::AppendFormat(failures_, "%s: %s (network error %d)\n", task.OriginalUrl().ToString(),
                    task.GetFailureText(), static_cast<uint32_t>(task.GetError()));
}

void ZEBDownloadStation::BeginAssetUpdateSearch() {
  updateRequested_ = false;
  if (IsTooSoon()) {
    MorvexLog::Message("ZEBDownloadStation::BeginAssetUpdateSearch> too soon for auto-update");
    return;
  }
  MorvexLog::Message("ZEBDownloadStation::BeginAssetUpdateSearch> starting update");
  const Endpoint server = downloads_.Settings().webServer;
  search_ = downloads_.RequestDownload(UpdateSearchUrl(server, State().lastReceivedFile), kDownloadAnew);
  if (!ticket_) ticket_ = downloads_.RequestDownload(TicketUrl(server), kDownloadAnew);
}

void ZEBDownloadStation::EndSearch(double now) {
  std::string path, name;
  if (TakeResult(search_, path, name)) {
    ParseSearchResults(path, name);
  } else {
    MorvexLog::Message("ZEBDownloadStation::Idle> Asset update failed '%s'. Retrying in 2 minutes.",
                       search_->OriginalUrl().ToString());
    NoteFailure(*search_);
    updateRequested_ = true;
    nextAttempt_ = now + kSecondsToRetry;
  }
  search_.Release();
}

bool ZEBDownloadStation::ParseSearchResults(std::string_view file, std::string_view name) {
  const ZEBAssetLock lock(true);
  const std::optional<SearchAnswer> answer = ReadSearchAnswer(file);
  if (!lock || !answer) {
    MorvexLog::Message("ZEBDownloadStation::ParseSearchResults> bad data in '%s'", name);
    return false;
  }
  DownloadStationState& state = State();
  state.lastUpdateTime = Nox::TimeStamp();
  state.lastReceivedFile = answer->timestamp;
  std::unordered_set<std::string> queued(state.queuedUrls.begin(), state.queuedUrls.end());
  for (const URL& url : answer->lists) {
    std::string text = url.ToString();
    if (queued.insert(text).second) state.queuedUrls.push_back(std::move(text));
  }
  MorvexLog::Message("ZEBDownloadStation::ParseSearchResults> %d files", answer->lists.size());
  ZEBMarkChanged(kContentChanged);
  return true;
}

void ZEBDownloadStation::StartList() {
  const std::string& first = State().queuedUrls.front();
  MorvexLog::Message("ZEBDownloadStation::Idle> Downloading asset list: %s", first);
  list_ = downloads_.RequestDownload(URL(first));
}

void ZEBDownloadStation::EndList(double now) {
  const URL url = list_->OriginalUrl();
  std::string path, name;
  if (TakeResult(list_, path, name)) {
    MorvexLog::Message("ZEBDownloadStation::Idle> Parsing asset list '%s'.", url.ToString());
    // A damaged list isn't asked for again and again; the cache doesn't keep it for the next one that names it.
    if (!ParseAssetList(path, url.ToString())) downloads_.RemoveFromCache(url);
    State().queuedUrls.erase(State().queuedUrls.begin());
  } else {
    MorvexLog::Message("ZEBDownloadStation::Idle> Failed download of '%s'. Retrying in 2 minutes.",
                       url.ToString());
    NoteFailure(*list_);
    nextAttempt_ = now + kSecondsToRetry;
  }
  list_.Release();
}

bool ZEBDownloadStation::ParseAssetList(std::string_view file, std::string_view name) {
  const ZEBAssetLock lock(true);
  if (!lock) return false;
  const AssetListMerge merge = MergeAssetList(std::string(file));
  if (merge.fault.empty()) return true;
  MorvexLog::Message("ZEBDownloadStation::ParseAssetList> %s", merge.fault);
  Nox::AppendFormat(failures_, "%s: %s\n", name, merge.fault);
  return false;
}

void ZEBDownloadStation::EndTicket() {
  std::string path, name;
  if (TakeResult(ticket_, path, name)) {
    ParseFirstClassTicketResult(path, name);
  } else {
    NoteFailure(*ticket_);
  }
  ticket_.Release();
}

bool ZEBDownloadStation::ParseFirstClassTicketResult(std::string_view file, std::string_view) {
  const ZEBAssetLock lock(true);
  if (!lock) return false;
  const TicketAnswer answer = ReadTicketAnswer(file);
  if (!answer.error.empty()) {
    MorvexLog::Message("ParseFirstClassTicketResult> error '%s'", answer.error);
    return false;
  }
  DownloadStationState& state = State();
  const bool active = answer.activeDays > 0;
  const bool suspended = !active && answer.suspendedDays > 0;
  state.ticketState = active ? state.kActive : suspended ? state.kSuspended : state.kNoTicket;
  state.ticketSeconds = (active ? answer.activeDays : answer.suspendedDays) * kSecondsOfDay;
  ZEBMarkChanged(kContentChanged);
  return true;
}

void ZEBDownloadStation::StartProfile() {
  const auto& pending = ZEBAssetCache::Instance().authors.PendingUserIds();
  if (pending.empty()) return;
  profileUser_ = pending.front();
  profile_ =
      downloads_.RequestDownload(ProfileUrl(downloads_.Settings().webServer, profileUser_), kDownloadAnew);
}

void ZEBDownloadStation::EndProfile(double now) {
  std::string path, name;
  if (TakeResult(profile_, path, name)) {
    ParseProfileResult(path);
    ZEBAssetCache::Instance().authors.DropPendingUser(profileUser_);
  } else {
    NoteFailure(*profile_);
    nextProfileAttempt_ = now + kSecondsToRetry;
  }
  profile_.Release();
}

void ZEBDownloadStation::ParseProfileResult(std::string_view file) {
  const ZEBAssetLock lock(true);
  if (!lock) return;
  for (const ProfileAnswer& profile : ReadProfileAnswer(file)) {
    const bool added = ZEBAssetCache::Instance().authors.AddProfile(
        profile.profileId, Nox::PString(profile.username), profile.userId);
    if (added) ZEBMarkChanged(kContentChanged);
  }
}

}  // namespace morvex
