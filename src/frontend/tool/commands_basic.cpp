// Commands that need no asset: version, echo, new KUIDs, keywords, the folder updater.

#include <iostream>

#include "database/catalogue/keywords.h"
#include "database/catalogue/kuid_generator.h"
#include "frontend/tool/asset_folder_updater.h"
#include "frontend/tool/command.h"

namespace morvex {

namespace {

constexpr int kBuild = 3323;

}  // namespace

bool CommandVersion(const CommandCall&) {
  std::cout << "Build " << kBuild << '\n';
  return true;
}

// The first word is the name under which the echo is asked for, and isn't echoed.
bool CommandEcho(const CommandCall& call) {
  for (std::size_t i = 3; i < call.Count(); ++i)
    std::cout << call.RawArgument(i);
  return true;
}

bool CommandGenerateKuid(const CommandCall&) {
  const KUID kuid = ZEBGenerateKUID();
  std::cout << "<KUID2:" << kuid.userId << ':' << kuid.contentId << ':' << kuid.version << ">\n";
  return !kuid.IsNull();
}

bool CommandBackupKeywords(const CommandCall&) {
  return ZEBDumpKeywords();
}

bool CommandImportKeywords(const CommandCall&) {
  return ZEBImportKeywords(ZEBRoot(), kKeywordsDump, "txt");
}

bool CommandUpdateFolders(const CommandCall& call) {
  if (call.HasArgument()) UpdateAssetFolders(std::string(call.RawArgument(2)));
  return true;
}

}  // namespace morvex
