#include "net/transfer/transfer.h"

#include "engine/format.h"
#include "net/transfer/ftp_transfer.h"
#include "net/transfer/http_transfer.h"
#include "net/transfer/portal_login.h"

namespace morvex {
namespace {

TransferStep RunScheme(HttpTransfer& http, const TransferOrder& order, TransferControl& control,
                       TransferSupport& support) {
  const URL& url = http.Url();
  if (url.HasScheme("http")) return http.RunPlain();
  if (url.HasScheme("https")) return http.RunSecure();
  if (url.HasScheme("ftp")) {
    const Endpoint proxy = support.settings().ftpProxy;
    if (!proxy.host.empty()) return http.RunThroughProxy(proxy);
    TransferOrder current = order;
    current.url = url;
    return {false, FetchByFtp(current, control, support)};
  }
  if (url.HasScheme(kLoginScheme)) return {false, LogInAtPortal(order.localFile, control, support)};
  return {false, TransferOutcome::Failed(NetError::kConnectFailed,
                                         Nox::FormatText("nothing fetches \"%s:\" addresses", url.scheme))};
}

}  // namespace

TransferOutcome RunTransfer(TransferOrder order, TransferControl& control, TransferSupport& support) {
  HttpTransfer http(order, control, support);
  while (!control.IsCancelled()) {
    const TransferStep step = RunScheme(http, order, control, support);
    if (!step.startAgain) return step.outcome;
  }
  return TransferOutcome::Failed(NetError::kClosed, "cancelled");
}

}  // namespace morvex
