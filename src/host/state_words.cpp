#include "host/state_words.h"

#include "database/catalogue/asset_status.h"

namespace morvex::host {

std::string StateWords(const ZEBAssetStatus& status) {
  const struct {
    bool holds;
    const char* words;
  } rows[] = {
      {!status.installed, "not installed"},
      {status.builtIn, "built in"},
      {status.localCopy, "local copy"},
      {status.open, "open for edit"},
      {status.archived, "archived"},
      {status.onStation, "on the download station"},
      {!status.latest, "a newer version is installed"},
      {status.missingDeps, "dependencies missing"},
      {status.hasErrors, "errors"},
  };
  std::string text;
  for (const auto& row : rows) {
    if (!row.holds) continue;
    if (!text.empty()) text += ", ";
    text += row.words;
  }
  return text;
}

}  // namespace morvex::host
