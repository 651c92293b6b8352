#include "net/transfer/download_manager.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <thread>
#include <tuple>

#include "engine/file.h"
#include "net/transfer/file_fetch.h"
#include "net/transfer/portal_login.h"

namespace morvex {
namespace {

using Status = DownloadTask::Status;

constexpr std::chrono::milliseconds kPollTime(100);

}  // namespace

void DownloadHandle::Release() {
  if (task_ != nullptr) manager_->ReleaseDownload(*task_);
  task_ = nullptr;
}

DownloadManager::DownloadManager(std::string_view cacheFolder) : cache_(cacheFolder) {
  support_.settings = [this] { return Settings(); };
  support_.logIn = [this](const TransferControl& waiting) { LogIn(waiting); };
}

DownloadManager::~DownloadManager() {
  Tasks ending;
  {
    const std::lock_guard guard(lock_);
    stopping_ = true;
    for (const auto& task : active_)
      task->Cancel();
    for (const auto& task : active_)
      Discard(*task);
    for (const auto& task : finished_)
      Discard(*task);
    ending.swap(active_);
  }
  ending.clear();  // waits for the threads, which may want the lock
  cache_.DeleteDropped([](const std::string&) { return false; });
}

DownloadHandle DownloadManager::RequestDownload(const URL& url, std::uint32_t flags) {
  std::unique_lock lock(lock_);
  while (!stopping_) {
    if (flags == 0) {
      if (DownloadTask* task = TakeBack(url)) return Hold(*task);
    } else if ((flags & kDownloadAnew) != 0) {
      ForgetFinished(url);
    }
    DownloadTask* const task = FindActive(url);
    if (task == nullptr) return Hold(NewTask(url, flags, TagContainer()));
    if (task->IsFinished() || !task->control_.IsCancelled()) return Hold(*task);
    // It is about to end.
    lock.unlock();
    std::this_thread::sleep_for(kPollTime);
    lock.lock();
    SettleFinished();
  }
  return {};
}

DownloadHandle DownloadManager::PostData(const URL& url, const TagContainer& fields) {
  const std::lock_guard guard(lock_);
  if (stopping_) return {};
  return Hold(NewTask(url, kDownloadUncached, fields));
}

// Nothing of it is ever handed out again, nor is its file the cache's.
DownloadHandle DownloadManager::DownloadToFile(const URL& url, std::string_view path, std::uint32_t flags) {
  const std::lock_guard guard(lock_);
  if (stopping_) return {};
  DownloadTask& task = AddTask(url, kDownloadUncached | kDownloadAnew);
  task.mayShare_ = false;
  task.isLocal_ = true;
  task.localPath_ = path;
  task.Start([this, &task, anew = (flags & kDownloadAnew) != 0] {
    return FetchToFile(task.url_, task.localPath_, anew, task.control_, support_);
  });
  return Hold(task);
}

DownloadHandle DownloadManager::Hold(DownloadTask& task) {
  ++task.refCount_;
  return {*this, task};
}

void DownloadManager::ReleaseDownload(DownloadTask& task) {
  const std::lock_guard guard(lock_);
  if (--task.refCount_ == 0) task.Cancel();
  SettleFinished();
}

// Takes a finished task of the URL back among the active ones, if its file is still there.
DownloadTask* DownloadManager::TakeBack(const URL& url) {
  const auto found = std::find_if(finished_.begin(), finished_.end(), [&](const auto& task) {
    return task->url_ == url && (task->flags_ & kDownloadUncached) == 0;
  });
  if (found == finished_.end()) return nullptr;
  if (!Nox::File::Exists((*found)->localPath_)) {
    finished_.erase(found);
    return nullptr;
  }
  active_.splice(active_.end(), finished_, found);
  return active_.back().get();
}

// The task of the URL that runs or is complete. One that has failed is passed over: it stays only as long as
// somebody holds it.
DownloadTask* DownloadManager::FindActive(const URL& url) const {
  const auto found = std::find_if(active_.begin(), active_.end(), [&](const auto& task) {
    return task->url_ == url && task->mayShare_ && task->GetStatus() != Status::kFailed;
  });
  return found == active_.end() ? nullptr : found->get();
}

void DownloadManager::LogIn(const TransferControl& waiting) {
  const URL login(std::string(kLoginScheme) + "://");
  const DownloadHandle task = RequestDownload(login, kDownloadUncached | kDownloadAnew);
  while (task && !waiting.IsCancelled() && !task->WaitUntilFinished(kPollTime)) {
  }
}

void DownloadManager::Idle() {
  const std::lock_guard guard(lock_);
  SettleFinished();
}

void DownloadManager::SettleFinished() {
  for (auto at = active_.begin(); at != active_.end();) {
    const auto current = at++;
    const DownloadTask& task = **current;
    if (task.refCount_ > 0 || !task.IsFinished()) continue;
    if (task.GetStatus() == Status::kComplete && (task.flags_ & kDownloadAnew) == 0) {
      finished_.splice(finished_.end(), active_, current);
    } else {
      Discard(task);
      active_.erase(current);
    }
  }
  if (finished_.size() > kMaxFinished) {
    Discard(*finished_.front());
    finished_.pop_front();
  }
  cache_.DeleteDropped([this](const std::string& path) { return IsInUse(path); });
}

// Leaves of a task what the cache is to keep: complete files that are entered, and what FTP may resume.
void DownloadManager::Discard(const DownloadTask& task) {
  if (task.isLocal_) return;
  const bool keeps = task.url_.HasScheme("ftp") ||
                     (task.GetStatus() == Status::kComplete && (task.flags_ & kDownloadAnew) == 0);
  if (!keeps) cache_.Remove(task.url_, task.localPath_);
  cache_.DropFile(task.localPath_);
}

bool DownloadManager::IsInUse(const std::string& path) const {
  const auto uses = [&](const auto& task) { return task->localPath_ == path; };
  return std::any_of(active_.begin(), active_.end(), uses) ||
         std::any_of(finished_.begin(), finished_.end(), uses);
}

void DownloadManager::RemoveFromCache(const URL& url) {
  const std::lock_guard guard(lock_);
  ForgetFinished(url);
  for (const auto& task : active_) {
    if (task->url_ != url) continue;
    task->mayShare_ = false;
    task->flags_ |= kDownloadAnew;
  }
  cache_.Remove(url);
  SettleFinished();
}

void DownloadManager::ForgetFinished(const URL& url) {
  std::erase_if(finished_, [&](const auto& task) {
    if (task->url_ == url) Discard(*task);
    return task->url_ == url;
  });
}

DownloadSettings DownloadManager::Settings() const {
  const std::lock_guard guard(lock_);
  return settings_;
}

void DownloadManager::SetSettings(const DownloadSettings& settings) {
  const std::lock_guard guard(lock_);
  const auto loginOf = [](const DownloadSettings& s) {
    return std::tie(s.webServer.host, s.webServer.port, s.username, s.password);
  };
  if (loginOf(settings) != loginOf(settings_)) support_.login.Clear();
  settings_ = settings;
  for (Endpoint* const server : {&settings_.webServer, &settings_.uploadServer})
    if (server->port == 0) server->port = DownloadSettings::kTlsPort;
}

void DownloadManager::SetHttpProxy(std::string_view host, std::uint32_t port) {
  const std::lock_guard guard(lock_);
  settings_.httpProxy = {std::string(host), port};
}

void DownloadManager::SetFtpProxy(std::string_view host, std::uint32_t port) {
  const std::lock_guard guard(lock_);
  settings_.ftpProxy = {std::string(host), port};
}

}  // namespace morvex
