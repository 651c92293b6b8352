// How tasks come about: with what the cache or a local file has, or with a thread that fetches.

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "engine/file.h"
#include "engine/path.h"
#include "engine/text.h"
#include "net/transfer/download_manager.h"

namespace morvex {
namespace {

using Status = DownloadTask::Status;

// The addresses of local files: "file://morvex/cache/internet/<name>" is in the cache.
constexpr std::string_view kLocalHost = "morvex";
constexpr std::string_view kCachePath = "/cache/";
constexpr std::string_view kInternetPath = "/cache/internet/";

// The extension of a URL's local file. It comes from outside, so that it is letters and digits or nothing.
std::string ExtensionOf(const URL& url) {
  constexpr std::size_t kLongest = 16;
  const std::string_view extension = Nox::Path::GetExt(url.FileName());
  const auto isPlain = [](char c) {
    return (c >= '0' && c <= '9') || (Nox::ToLower(c) >= 'a' && Nox::ToLower(c) <= 'z');
  };
  if (extension.size() > kLongest || !std::all_of(extension.begin(), extension.end(), isPlain)) return {};
  return Nox::ToLower(extension);
}

}  // namespace

DownloadTask& DownloadManager::AddTask(const URL& url, std::uint32_t flags) {
  active_.push_back(std::unique_ptr<DownloadTask>(new DownloadTask(url)));
  active_.back()->flags_ = flags;
  return *active_.back();
}

DownloadTask& DownloadManager::NewTask(const URL& url, std::uint32_t flags, const TagContainer& fields) {
  DownloadTask& task = AddTask(url, DownloadCache::CanKeep(url) ? flags : flags | kDownloadUncached);
  task.mayShare_ = fields.GetCount() == 0;
  if (url.HasScheme("file")) {
    ResolveLocally(task);
  } else {
    StartTask(task, fields);
  }
  return task;
}

void DownloadManager::ResolveLocally(DownloadTask& task) {
  task.isLocal_ = true;
  const std::string_view path = task.url_.path;
  std::optional<std::string> local;
  if (Nox::EqualsIgnoreCase(task.url_.host, kLocalHost)) {
    if (path.starts_with(kInternetPath)) {
      local = cache_.PathOf(path.substr(kInternetPath.size()));
    } else if (!path.starts_with(kCachePath) && settings_.localFiles) {
      local = settings_.localFiles(path);
    }
  }
  if (local && Nox::File::SizeOf(*local).value_or(0) > 0) {
    task.localPath_ = *local;
    task.Settle(TransferOutcome::Complete());
  } else {
    task.Settle(TransferOutcome::Failed(NetError::kNoLocalFile, "the local file is missing or empty"));
  }
}

void DownloadManager::StartTask(DownloadTask& task, const TagContainer& fields) {
  TransferOrder order;
  order.url = task.url_;
  order.form = fields;
  std::optional<DownloadCache::Found> known;
  if ((task.flags_ & (kDownloadUncached | kDownloadAnew)) == 0) known = cache_.Find(task.url_);
  if (known) {
    task.localPath_ = known->path;
    if (known->complete) return task.Settle(TransferOutcome::Complete());
    task.status_ = Status::kPartial;
    order.known.size = Nox::File::SizeOf(known->path).value_or(0);
  } else {
    const std::optional<std::string> made = cache_.MakeFile(ExtensionOf(task.url_));
    if (!made) {
      return task.Settle(
          TransferOutcome::Failed(NetError::kNoLocalFile, "no file can be made in the cache folder"));
    }
    task.localPath_ = *made;
    task.status_ = Status::kWanted;
    if (task.flags_ == 0) cache_.Begin(task.url_, task.localPath_);
  }
  order.localFile = task.localPath_;
  task.Start([this, &task, order = std::move(order)] {
    TransferOutcome outcome = RunTransfer(order, task.control_, support_);
    NoteEnd(task, outcome);
    return outcome;
  });
}

// What FTP has brought so far is entered whatever became of it, so that the next one can go on there.
void DownloadManager::NoteEnd(const DownloadTask& task, const TransferOutcome& outcome) {
  const std::lock_guard guard(lock_);
  if ((task.flags_ & kDownloadUncached) != 0) return;
  if (outcome.complete || task.url_.HasScheme("ftp"))
    cache_.AddToCache(task.url_, task.localPath_, outcome.complete);
}

bool DownloadManager::StoreInCache(std::span<const std::uint8_t> data, URL& url) {
  const std::optional<std::string> path = cache_.MakeFile("dat");
  Nox::File file;
  if (!path || !file.Open(*path, Nox::OpenMode::kUpdate)) return false;
  if (file.Write(data.data(), data.size()) != data.size() || !file.Close()) {
    Nox::File::Unlink(*path);
    return false;
  }
  url = URL();
  url.scheme.Set("file");
  url.host.Set(kLocalHost);
  url.SetPath(std::string(kInternetPath).append(Nox::Path::GetFileName(*path)));
  return true;
}

}  // namespace morvex
