#include <iostream>

#include "database/catalogue/asset_status.h"
#include "database/operations/make_package.h"
#include "engine/path.h"
#include "frontend/messages/results_log.h"
#include "frontend/tool/command.h"
#include "frontend/tool/command_texts.h"
#include "packages/package_archive.h"

namespace morvex {

namespace {

constexpr std::size_t kFirstKuid = 3;

bool IsInstalled(const KUID& kuid) {
  ZEBAssetStatus status;
  return ZEBGetAssetStatus(kuid, status) && status.installed;
}

}  // namespace

bool CommandCreatePackage(const CommandCall& call) {
  if (!call.HasArgument()) return Refuse("- please specify a filepath to where you want to create your cdp");
  const std::string path(call.RawArgument(2));
  if (!Nox::Path::IsExt(path, "cdp")) return Refuse("- the output filename has to be a .cdp");

  PackageBuilder package;
  for (std::size_t i = kFirstKuid; i < call.Count(); ++i) {
    const std::string_view argument = call.RawArgument(i);
    const KUID kuid(argument, false);
    if (kuid.IsNull()) {
      Refuse("- you have entered a wrong KUID");
      PrintResults(call.Log());
      return false;
    }
    if (!IsInstalled(kuid)) {
      return Refuse("- the asset: " + std::string(argument) + " was not found localy");
    }
    // What can't be added has said so in the log, or stands in the package already.
    (void)package.Add(ZEBMakeAssetPackage(kuid, &call.Log()));
  }
  PrintResults(call.Log());

  const Nox::PString error = SaveArchive(package.Finish(), path);
  if (!error.Empty()) return Refuse(error.View());
  std::cout << "- successfuly packaged those kuid\n";
  return true;
}

}  // namespace morvex
