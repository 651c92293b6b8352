#include "net/transfer/file_fetch.h"

#include <utility>

#include "engine/format.h"
#include "net/transfer/part_file.h"

namespace morvex {

TransferOutcome FetchToFile(const URL& url, const std::string& target, bool anew, TransferControl& control,
                            TransferSupport& support) {
  PartFile part(target);
  std::string failure = part.Open();
  if (!failure.empty()) return TransferOutcome::Failed(NetError::kNoLocalFile, std::move(failure));
  if (anew) part.Begin(url, {});
  TransferOrder order;
  order.url = url;
  order.localFile = part.Path();
  order.known = part.Find(url);
  order.begin = [&](std::string_view version) { part.Begin(url, version); };
  TransferOutcome outcome = RunTransfer(order, control, support);
  if (outcome.complete && !part.Commit())
    return TransferOutcome::Failed(NetError::kNoLocalFile,
                                   Nox::FormatText("\"%s\" can't be written", target));
  return outcome;
}

}  // namespace morvex
