#pragma once

#include <memory>

#include "net/transfer/connection_in_use.h"
#include "net/transfer/redirect_trail.h"
#include "net/transfer/transfer.h"

namespace morvex {

// A transfer is done, or starts again with another URL, which may have another scheme.
struct TransferStep {
  bool startAgain = false;
  TransferOutcome outcome;
};

// One GET or POST with its redirects. What is on the same server is asked for over the same connection; for what is
// elsewhere the caller starts again with the scheme of Url(), when the connection and the permit are given back.
// A form goes to the first server only, and only once: what a redirect leads to is a GET. The rest of a file whose
// version is known is asked for once; where that doesn't bring it, the file is fetched from its start.
class HttpTransfer {
 public:
  // `order` must outlive this.
  HttpTransfer(const TransferOrder& order, TransferControl& control, TransferSupport& support)
      : order_(order),
        control_(control),
        support_(support),
        url_(order.url),
        form_(order.form),
        known_(order.known) {}

  // Where the transfer has come to.
  [[nodiscard]] const URL& Url() const { return url_; }

  // "http:": under a permit, over an idle connection if there is one. A proxy of the settings is told the URL.
  [[nodiscard]] TransferStep RunPlain();
  // The same, over this proxy, whatever the scheme.
  [[nodiscard]] TransferStep RunThroughProxy(const Endpoint& proxy);
  // "https:": over a connection of its own, logged in if it leads to the service's web server.
  [[nodiscard]] TransferStep RunSecure();

 private:
  using InUse = ConnectionInUse<HTTPConnection>;

  TransferStep RunOver(const ServerLogin& peer);
  bool ConnectPlain(InUse& connection, const ServerLogin& peer);
  void PutLogin(HTTPConnection& connection, const DownloadSettings& settings);
  // Sends the request and reads the headers of the answer.
  bool Ask(HTTPConnection& connection);
  bool WantsRest() const { return known_.size > 0 && !known_.version.empty(); }
  // Reads the rest of the answer, and follows redirects as far as the connection serves them.
  TransferStep Finish(HTTPConnection& connection, bool answered);
  TransferStep TakeBody(HTTPConnection& connection);
  TransferStep Failed(const HTTPConnection& connection) const;

  const TransferOrder& order_;
  TransferControl& control_;
  TransferSupport& support_;
  URL url_;
  TagContainer form_;    // cleared by the first redirect
  FileBeginning known_;  // cleared by an answer that doesn't fit
  RedirectTrail trail_;
};

}  // namespace morvex
