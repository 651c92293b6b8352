#include "net/transfer/portal_login.h"

#include <string>
#include <utility>

#include "engine/file.h"
#include "net/transfer/connection_in_use.h"
#include "net/transfer/ssl_transport.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

constexpr const char* kLoginPath =
    "/quasmere/imorvex/remote_login.php?username=%s&password=%s&screenwidth=%d&language=%s";

const Nox::PString kCookie("cookie");

// The cookie that the answer names, or nothing. The file goes: it is as good as the password.
std::string TakeCookie(std::string_view answerFile) {
  TagContainer answer;
  const bool loaded = answer.Load(Nox::PString(), answerFile, "txt");
  Nox::File::Unlink(answerFile);
  return loaded ? answer.GetText(kCookie) : std::string();
}

}  // namespace

TransferOutcome LogInAtPortal(std::string_view localFile, TransferControl& control,
                              TransferSupport& support) {
  MorvexLog::Message("DownloadTask::DoQuasmereLogin> logging in to quasmere");
  const DownloadSettings settings = support.settings();
  if (settings.username.empty() || settings.password.empty()) {
    MorvexLog::Message("DownloadTask::DoQuasmereLogin> no profile password specified");
    return TransferOutcome::Failed(NetError::kLoginFailed, "no user name and password are set");
  }

  auto fresh = std::make_unique<HTTPConnection>();
  fresh->SetHost(settings.webServer.host);
  ConnectionInUse<HTTPConnection> connection(control);
  SSLTransport* const transport = connection.UseOver<SSLTransport>(std::move(fresh));
  if (transport == nullptr) return TransferOutcome::Failed(NetError::kClosed, "cancelled");
  transport->Connect(settings.webServer, settings.httpProxy);
  connection->SendGet("https", kLoginPath, settings.username, settings.password, settings.screenWidth,
                      settings.language);
  const bool whole = connection->ReadResponseHeaders() && connection->Status() == HTTPStatus::kSuccess &&
                     connection->ReadBody(localFile);
  const std::string cookie = TakeCookie(localFile);
  if (!whole) {
    const NetError error = connection->ErrorCode();
    return TransferOutcome::Failed(error == NetError::kNone ? NetError::kLoginFailed : error,
                                   connection->FailureText());
  }
  if (cookie.empty()) return TransferOutcome::Failed(NetError::kLoginFailed, "the server refused the login");
  support.login.Store(*connection, cookie);
  return TransferOutcome::Complete();
}

}  // namespace morvex
