#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "net/transfer/download_manager.h"

namespace morvex {

// The client of the download station: keeps the catalogue's mirror of the station's list up to date, the state of
// the first-class ticket, and the names of authors. What it knows lies in the catalogue and goes into the index
// file (DownloadStationState, AuthorTable). Goes before the manager does, and before ZEBShutdown.
//
//   search       asked for by RequestUpdate, at most every six hours; its answer names lists
//   lists        fetched one at a time in their order, each taken over into the catalogue
//   ticket       asked for beside the search
//   profiles     of authors whose number was shown without a name, one question at a time
//
// For one thread, which calls Idle now and then. Each operation takes the database lock for writing.
class ZEBDownloadStation {
 public:
  static constexpr std::uint64_t kSecondsBetweenSearches = 21600;  // six hours
  static constexpr double kSecondsToRetry = 120;

  // The web server is that of the manager's settings.
  explicit ZEBDownloadStation(DownloadManager& downloads) : downloads_(downloads) {}
  ~ZEBDownloadStation() { Close(); }
  ZEBDownloadStation(const ZEBDownloadStation&) = delete;
  ZEBDownloadStation& operator=(const ZEBDownloadStation&) = delete;

  // The last search was less than six hours ago, so that the next one won't be sent.
  [[nodiscard]] bool IsTooSoon() const;
  // Asks for a search as soon as Idle comes to it. True, and nothing happens, if one runs already.
  bool RequestUpdate();
  // Goes on with whatever is ready; `now` counts seconds from anywhere. Waits for no network. False if the database
  // is busy or isn't started.
  bool Idle(double now);
  // Drops the running downloads, as the end of the client does. What was queued stays so.
  void Close();

  // The steps behind Idle. What the station answered lies in `file`; `name` is for the log.
  void BeginAssetUpdateSearch();
  bool ParseSearchResults(std::string_view file, std::string_view name);
  bool ParseAssetList(std::string_view file, std::string_view name);
  bool ParseFirstClassTicketResult(std::string_view file, std::string_view name);
  void ParseProfileResult(std::string_view file);

  // The running downloads, null where there is none: for those who show progress.
  [[nodiscard]] const DownloadTask* SearchTask() const { return search_ ? &*search_ : nullptr; }
  [[nodiscard]] const DownloadTask* ListTask() const { return list_ ? &*list_ : nullptr; }
  // Nothing runs, is queued, or is asked for.
  [[nodiscard]] bool IsDone() const;
  // What went wrong since the last call, in words, a line each; Idle tries again later. Some may hold any byte.
  [[nodiscard]] std::string TakeFailures();

 private:
  void EndSearch(double now);
  void EndList(double now);
  void EndTicket();
  void EndProfile(double now);
  void StartList();
  void StartProfile();
  void NoteFailure(const DownloadTask& task);

  DownloadManager& downloads_;
  bool updateRequested_ = false;
  double nextAttempt_ = 0;
  double nextProfileAttempt_ = 0;
  DownloadHandle search_;
  DownloadHandle list_;
  DownloadHandle ticket_;
  DownloadHandle profile_;
  std::uint32_t profileUser_ = 0;  // whom profile_ asks for
  std::string failures_;
};

}  // namespace morvex
