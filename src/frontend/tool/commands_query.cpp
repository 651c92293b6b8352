// Commands that ask the catalogue: status, search, authors, configuration.

#include <iostream>
#include <unordered_set>
#include <vector>

#include "database/catalogue/asset_query.h"
#include "database/catalogue/asset_status.h"
#include "database/catalogue/author_names.h"
#include "engine/pstring.h"
#include "frontend/tool/command.h"
#include "frontend/tool/command_texts.h"

namespace morvex {

namespace {

// Categories are written in capitals.
std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

}  // namespace

bool CommandStatus(const CommandCall& call) {
  if (!call.HasArgument()) return Refuse("please specify an asset to obtain the status from");
  const KUID kuid = call.ArgumentKuid();
  ZEBAssetStatus status;
  if (!ZEBGetAssetStatus(kuid, status)) {
    return Refuse("-Could not retrieve the asset for for the kuid: " + call.Argument());
  }
  std::cout << "+ " << kuid.TagText() << " : " << status.Letters() << " : " << status.category << " : "
            << status.name << '\n';
  return true;
}

bool CommandPrintConfig(const CommandCall& call) {
  if (!call.HasArgument()) return Refuse(kNoAssetToEdit);
  const KUID kuid = call.ArgumentKuid();
  const TagContainer config = ZEBGetAssetConfig(kuid);
  if (config.IsEmpty()) return Refuse(kUnknownAsset);
  std::cout << "+ Start of " << kuid.TagText() << " dump\n" << std::flush;
  config.Print();
  std::cout << "+ End of " << kuid.TagText() << " dump\n";
  return true;
}

bool CommandSearchByCategory(const CommandCall& call) {
  ZEBAssetQuery query;
  if (call.Argument() == "-a") {
    if (call.RawArgument(3).empty()) return Refuse("-You must enter a category to search for");
    query.categoryFilter = UpperCase(call.RawArgument(3));
  } else {
    query.categoryFilter = UpperCase(call.Argument());
    query.installed = QueryFilter::kMustBeTrue;
  }
  KUIDList found;
  ZEBSearchAssets(query, found);
  if (found.IsEmpty()) {
    return Refuse("-The category entered is either not valid or there's no asset that meets those criteria");
  }
  std::cout << "+ " << found.Count() << " : assets matching the specified criteria\n";
  std::size_t number = 0;
  for (const KUID& kuid : found)
    std::cout << "+ #" << number++ << " : " << kuid.TagText() << '\n';
  return true;
}

bool CommandAuthors(const CommandCall&) {
  ZEBAssetQuery query;
  query.installed = query.committed = query.enabled = QueryFilter::kMustBeTrue;
  KUIDList found;
  ZEBSearchAssets(query, found);

  std::unordered_set<Nox::PString> known;
  std::unordered_set<std::int32_t> numbers;
  std::vector<Nox::PString> names;
  for (const KUID& kuid : found) {
    if (!numbers.insert(kuid.userId).second) continue;
    const Nox::PString name = ZEBAuthorName(kuid.userId);
    if (known.insert(name).second) names.push_back(name);
  }
  for (const Nox::PString name : names)
    std::cout << name.View() << '\n';
  return true;
}

}  // namespace morvex
