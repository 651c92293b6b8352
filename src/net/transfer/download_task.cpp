#include "net/transfer/download_task.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "engine/file.h"

namespace morvex {

DownloadTask::DownloadTask(const URL& url) : url_(url) {}

DownloadTask::~DownloadTask() {
  Cancel();
  if (thread_.joinable()) thread_.join();
}

void DownloadTask::Start(std::function<TransferOutcome()> fetch) {
  try {
    thread_ = std::thread([this, fetch = std::move(fetch)] { Settle(fetch()); });
  } catch (const std::system_error& error) {
    Settle(TransferOutcome::Failed(NetError::kNoConnection, error.what()));
  }
}

void DownloadTask::Settle(const TransferOutcome& outcome) {
  const std::lock_guard guard(lock_);
  outcome_ = outcome;
  status_ = outcome.complete ? Status::kComplete : Status::kFailed;
  finished_.notify_all();
}

DownloadTask::Status DownloadTask::GetStatus() const {
  const std::lock_guard guard(lock_);
  return status_;
}

bool DownloadTask::IsFinished() const {
  const Status status = GetStatus();
  return status == Status::kComplete || status == Status::kFailed;
}

bool DownloadTask::WaitUntilFinished(std::chrono::milliseconds time) const {
  std::unique_lock lock(lock_);
  return finished_.wait_for(lock, time,
                            [this] { return status_ == Status::kComplete || status_ == Status::kFailed; });
}

bool DownloadTask::GetResult(std::string& path, Nox::PString& name) const {
  if (GetStatus() != Status::kComplete) return false;
  path = localPath_;
  name = Nox::PString(url_.FileName());
  return true;
}

NetError DownloadTask::GetError() const {
  const std::lock_guard guard(lock_);
  if (status_ == Status::kComplete) return NetError::kNone;
  return control_.IsCancelled() ? NetError::kClosed : outcome_.error;
}

std::string DownloadTask::GetFailureText() const {
  const std::lock_guard guard(lock_);
  return outcome_.text;
}

std::uint64_t DownloadTask::GetResumedFrom() const {
  const std::lock_guard guard(lock_);
  return outcome_.resumedFrom;
}

void DownloadTask::Cancel() {
  if (GetStatus() != Status::kComplete) control_.Cancel();
}

float DownloadTask::GetProgress() const {
  if (GetStatus() == Status::kComplete) return 1;
  const std::uint64_t total = GetTotalBytes();
  if (total == 0) return 0;
  return std::min(1.0F, static_cast<float>(GetBytesReceived()) / static_cast<float>(total));
}

std::uint64_t DownloadTask::GetBytesReceived() const {
  return control_.BytesReceived();
}

std::uint64_t DownloadTask::GetTotalBytes() const {
  return control_.BytesExpected();
}

std::uint64_t DownloadTask::GetBytesSent() const {
  return control_.BytesSent();
}

}  // namespace morvex
