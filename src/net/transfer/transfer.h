#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "net/transfer/download_settings.h"
#include "net/transfer/ftp_connection.h"
#include "net/transfer/http_connection.h"
#include "net/transfer/idle_pool.h"
#include "net/transfer/login_cookies.h"
#include "net/transfer/part_file.h"
#include "net/transfer/transfer_control.h"
#include "net/transfer/transfer_permits.h"
#include "net/transfer/url.h"
#include "tagdata/tag_container.h"

namespace morvex {

// What the threads of all downloads of a manager share. Everything here may be used by any thread.
struct TransferSupport {
  static constexpr int kHttpPermits = 10;
  static constexpr int kFtpPermits = 5;

  TransferPermits httpPermits{kHttpPermits};
  TransferPermits ftpPermits{kFtpPermits};  // for direct transfers
  IdlePool<HTTPConnection> idleHttp;
  IdlePool<FTPConnection> idleFtp;
  LoginCookies login;
  std::function<DownloadSettings()> settings;
  // Waits until somebody has logged in at the web server, or failed to, or until the waiting download is cancelled.
  std::function<void(const TransferControl& waiting)> logIn;
};

// What one transfer is to do.
struct TransferOrder {
  URL url;
  TagContainer form;      // a tag in it makes the request a POST
  std::string localFile;  // made or replaced, or gone on with
  // What the local file holds. HTTP goes on with it if the version is known, FTP also without one.
  FileBeginning known;
  // Told the version of the file, or nothing, when the local file is to begin with its first byte. May be empty.
  std::function<void(std::string_view version)> begin;
};

// How it went. `error` is kNone for a failure if the peer answered well, but with nothing.
struct TransferOutcome {
  bool complete = false;
  NetError error = NetError::kNone;
  std::string text;               // what went wrong, in words, as the peer and the system say it
  std::uint64_t resumedFrom = 0;  // bytes of the file that were there before

  static TransferOutcome Complete(std::uint64_t resumedFrom = 0) {
    return {true, NetError::kNone, {}, resumedFrom};
  }
  static TransferOutcome Failed(NetError error, std::string text) {
    return {false, error, std::move(text), 0};
  }
};

// Carries out a transfer on the calling thread, through all its redirects.
[[nodiscard]] TransferOutcome RunTransfer(TransferOrder order, TransferControl& control,
                                          TransferSupport& support);

}  // namespace morvex
