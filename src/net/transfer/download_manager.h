#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <mutex>
#include <span>
#include <string_view>
#include <utility>

#include "net/transfer/download_cache.h"
#include "net/transfer/download_settings.h"
#include "net/transfer/download_task.h"
#include "net/transfer/transfer.h"

namespace morvex {

class DownloadManager;

// One user's hold on a task; what nobody holds is cancelled. Goes before the manager does.
class DownloadHandle {
 public:
  DownloadHandle() = default;
  DownloadHandle(DownloadManager& manager, DownloadTask& task) : manager_(&manager), task_(&task) {}
  DownloadHandle(DownloadHandle&& other) noexcept { *this = std::move(other); }
  DownloadHandle& operator=(DownloadHandle&& other) noexcept {
    std::swap(manager_, other.manager_);
    std::swap(task_, other.task_);
    return *this;
  }
  ~DownloadHandle() { Release(); }

  explicit operator bool() const { return task_ != nullptr; }
  DownloadTask* operator->() const { return task_; }
  DownloadTask& operator*() const { return *task_; }
  void Release();

 private:
  DownloadManager* manager_ = nullptr;
  DownloadTask* task_ = nullptr;
};

// Owns the downloads, the idle connections, the cookies of the login and the cache. Any thread may use it. Of its
// locks a thread takes a permit of its support first, then the manager's lock, then a task's.
//
//   DownloadManager downloads(root + "/cache/internet");
//   DownloadHandle page = downloads.RequestDownload(URL("http://host/page.html"));
//   while (!page->WaitUntilFinished(100ms)) ShowProgress(page->GetProgress());
//   if (page->GetResult(path, name)) ...
class DownloadManager {
 public:
  // `cacheFolder` is an absolute path, of a folder that is for nothing else: what its index doesn't name is deleted.
  // Without one there is no cache, and only DownloadToFile brings anything.
  explicit DownloadManager(std::string_view cacheFolder = {});
  // Cancels what still runs, and waits for it. No handle may be left.
  ~DownloadManager();
  DownloadManager(const DownloadManager&) = delete;
  DownloadManager& operator=(const DownloadManager&) = delete;

  // The task that fetches this URL: one that is there, or a new one, which starts at once. Waits if a cancelled
  // task of the URL has yet to end. `flags` are of download_task.h; what has a query is never cached.
  [[nodiscard]] DownloadHandle RequestDownload(const URL& url, std::uint32_t flags = 0);
  // A new task that fetches to `path`, an absolute one, past the cache and for nobody else. What comes goes to
  // "<path>.part" and takes its place when it is whole: until then the file that may be there stays as it is. However
  // the task ends, what has come stays, and the next one for the same URL and path goes on with it if the server says
  // that its file is still the same. kDownloadAnew forgets it. Fails if another task, of any process, has that part.
  [[nodiscard]] DownloadHandle DownloadToFile(const URL& url, std::string_view path, std::uint32_t flags = 0);
  // A new task that posts a form: each tag is a field; a container with `filedata` and `filename` is a file.
  [[nodiscard]] DownloadHandle PostData(const URL& url, const TagContainer& fields);

  // Writes a result that is in memory to a new file of the cache, which stays until the next start. `url` becomes
  // its address. False if it can't be written.
  [[nodiscard]] bool StoreInCache(std::span<const std::uint8_t> data, URL& url);
  // Forgets what the cache has for a URL. The file stays as long as a task of it is held.
  void RemoveFromCache(const URL& url);

  // Deletes and keeps what has ended and isn't held any more. To be called now and then; each release does it, too.
  void Idle();

  [[nodiscard]] DownloadSettings Settings() const;
  // Another user or server ends the login.
  void SetSettings(const DownloadSettings& settings);
  void SetHttpProxy(std::string_view host, std::uint32_t port);
  void SetFtpProxy(std::string_view host, std::uint32_t port);

  // The folder that it got: the one asked for, or one beside it if another manager has that.
  [[nodiscard]] const std::string& CacheFolder() const { return cache_.Folder(); }

 private:
  friend class DownloadHandle;

  using Tasks = std::list<std::unique_ptr<DownloadTask>>;
  static constexpr std::size_t kMaxFinished = 100;

  void ReleaseDownload(DownloadTask& task);

  // All of these under lock_.
  DownloadHandle Hold(DownloadTask& task);
  DownloadTask* TakeBack(const URL& url);
  DownloadTask* FindActive(const URL& url) const;
  DownloadTask& AddTask(const URL& url, std::uint32_t flags);
  DownloadTask& NewTask(const URL& url, std::uint32_t flags, const TagContainer& fields);
  void ResolveLocally(DownloadTask& task);
  void StartTask(DownloadTask& task, const TagContainer& fields);
  void SettleFinished();
  void ForgetFinished(const URL& url);
  void Discard(const DownloadTask& task);
  bool IsInUse(const std::string& path) const;

  // Of the threads of tasks.
  void NoteEnd(const DownloadTask& task, const TransferOutcome& outcome);
  void LogIn(const TransferControl& waiting);

  DownloadCache cache_;
  TransferSupport support_;
  mutable std::mutex lock_;
  bool stopping_ = false;
  DownloadSettings settings_;
  Tasks active_;    // running, or held
  Tasks finished_;  // complete, and to be handed out again; the oldest first
};

}  // namespace morvex
