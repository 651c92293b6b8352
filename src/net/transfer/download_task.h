#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "engine/pstring.h"
#include "net/transfer/net_error.h"
#include "net/transfer/transfer.h"
#include "net/transfer/transfer_control.h"
#include "net/transfer/url.h"

namespace morvex {

// Bits of the flags of a download.
inline constexpr std::uint32_t kDownloadUncached =
    1;                                             // don't answer from the cache, nor keep the result there
inline constexpr std::uint32_t kDownloadAnew = 2;  // don't answer from the cache, and drop what it has

// The fetching of one URL into a file of the cache folder, or to a place of the caller's, on a thread of its own. The
// DownloadManager makes, keeps and deletes it; whoever asks for it holds it by a DownloadHandle. Several who ask for
// one URL share one task, unless it is for a place of the caller's.
//
//   created -> wanted or partial -> complete       by its thread
//                               \-> failed
//   created -> complete or failed                  at once: found in the cache, or a local file
//
// All questions may come from any thread, and take the task's lock for a few instructions.
class DownloadTask {
 public:
  enum class Status : std::uint32_t {
    kCreated = 0,
    kWanted = 1,    // to be fetched
    kPartial = 2,   // partly in the cache
    kComplete = 3,  // the file is there
    kFailed = 4,
  };

  DownloadTask(const DownloadTask&) = delete;
  DownloadTask& operator=(const DownloadTask&) = delete;

  [[nodiscard]] Status GetStatus() const;
  // It is complete, or has failed.
  [[nodiscard]] bool IsFinished() const;
  // Waits until then, but no longer than this; the same answer.
  bool WaitUntilFinished(std::chrono::milliseconds time) const;

  // True only if the download is complete: where its file lies, and the name that its URL gives it. The file stays
  // as long as the task is held.
  [[nodiscard]] bool GetResult(std::string& path, Nox::PString& name) const;
  // kClosed once it was cancelled, whatever else happened. A failure with kNone: the peer answered well, but with
  // nothing.
  [[nodiscard]] NetError GetError() const;
  // What went wrong, in words. Some are the peer's and may hold any byte.
  [[nodiscard]] std::string GetFailureText() const;

  // Ends the download soon, whatever it waits for; a partial file of FTP, or at a place of the caller's, stays for a
  // later resume. Nothing happens to a download that is complete.
  void Cancel();

  // 0 while the length is unknown, else from 0 to 1.
  [[nodiscard]] float GetProgress() const;
  // Bytes of the file so far, and in all, 0 if unknown.
  [[nodiscard]] std::uint64_t GetBytesReceived() const;
  [[nodiscard]] std::uint64_t GetTotalBytes() const;
  // Bytes that went out over the connection in use, all it takes to send a form counted.
  [[nodiscard]] std::uint64_t GetBytesSent() const;
  // Bytes of a complete file that an earlier download had left.
  [[nodiscard]] std::uint64_t GetResumedFrom() const;

  // As it was asked for.
  [[nodiscard]] const URL& OriginalUrl() const { return url_; }

 private:
  friend class DownloadManager;
  friend struct std::default_delete<DownloadTask>;

  explicit DownloadTask(const URL& url);
  // Cancels, and waits for the thread.
  ~DownloadTask();

  // Starts the thread, on which `fetch` does all there is to do.
  void Start(std::function<TransferOutcome()> fetch);
  // Ends a task that needs no thread.
  void Settle(const TransferOutcome& outcome);

  const URL url_;
  // Of the manager, under its lock.
  std::string localPath_;
  std::uint32_t flags_ = 0;
  std::uint32_t refCount_ = 0;
  bool mayShare_ = true;  // another who asks for the URL may have it
  bool isLocal_ = false;  // localPath_ is somebody's own file

  TransferControl control_;
  mutable std::mutex lock_;
  mutable std::condition_variable finished_;
  Status status_ = Status::kCreated;
  TransferOutcome outcome_;
  std::thread thread_;
};

}  // namespace morvex
