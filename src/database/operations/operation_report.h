#pragma once

#include <string>
#include <string_view>

#include "frontend/messages/asset_message.h"

namespace morvex {

// What an operation says about one asset, to a log that may be absent. Each text has the asset's KUID as argument.
class OperationReport {
 public:
  OperationReport(ResultsLog* log, const KUID& kuid) : log_(log), kuid_(kuid) {}

  // Both false, so that a step that fails can say so and answer in one.
  bool Error(std::string_view key) const { return Say(Severity::kError, key); }
  bool Warning(std::string_view key) const { return Say(Severity::kWarning, key); }
  void Success(std::string_view key) const { Say(Severity::kNote, key); }

 private:
  bool Say(Severity severity, std::string_view key) const {
    if (log_ != nullptr) AddAssetMessage(*log_, severity, kuid_, key, kuid_.TagText());
    return false;
  }

  ResultsLog* const log_;
  const KUID kuid_;
};

// The same about a file or folder of the host that has no asset yet.
inline void ReportPath(ResultsLog* log, Severity severity, std::string_view key, std::string_view path) {
  if (log != nullptr) log->Add(severity, MorvexPropertyPtr(), GetInterfaceString(key), 0, path);
}

}  // namespace morvex
