#pragma once

#include <string_view>

#include "frontend/messages/interface_text.h"
#include "frontend/messages/results_log.h"
#include "tagdata/kuid.h"
#include "tagdata/property_asset_id.h"

namespace morvex {

// The subject of an entry about an asset.
[[nodiscard]] inline MorvexPropertyPtr AssetSubject(const KUID& kuid) {
  return MakeProperty<MorvexPropertyAssetID>(Nox::PString(), kuid);
}

// Adds the text of a message key about an asset, with the arguments that the message is made for.
template <typename... Args>
void AddAssetMessage(ResultsLog& log, Severity severity, const KUID& kuid, std::string_view key,
                     const Args&... args) {
  log.Add(severity, AssetSubject(kuid), GetInterfaceString(key), 0, args...);
}

}  // namespace morvex
