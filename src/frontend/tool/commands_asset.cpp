// Commands that change one asset, and those that bring assets in.

#include <iostream>

#include "database/catalogue/asset_location.h"
#include "database/catalogue/asset_lock.h"
#include "database/operations/commit.h"
#include "database/operations/delete_asset.h"
#include "database/operations/install.h"
#include "database/operations/install_asset.h"
#include "database/operations/open_asset.h"
#include "database/operations/revert.h"
#include "engine/file.h"
#include "frontend/messages/results_log.h"
#include "frontend/tool/command.h"
#include "frontend/tool/command_texts.h"

namespace morvex {

bool CommandInstallPackage(const CommandCall& call) {
  if (!call.HasArgument()) return Refuse("-Please specify a .CDP file");
  std::uint8_t notRemoved = 0;
  const std::size_t installed =
      ZEBInstallPackageFile(call.Argument(), &call.Log(), kInstallCommit, &notRemoved);
  PrintResults(call.Log());
  return installed != 0;
}

bool CommandInstallFromPath(const CommandCall& call) {
  if (!call.HasArgument()) return Refuse("-Please specify a path");
  if (!Nox::File::Exists(call.Argument())) return Refuse("-The path you specified does not exist");
  std::uint8_t notRemoved = 0;
  const std::size_t found = ZEBInstallFromPath(call.Argument(), &call.Log(), &notRemoved, nullptr);
  PrintResults(call.Log());
  return found != 0;
}

bool CommandEdit(const CommandCall& call) {
  if (!call.HasArgument()) return Refuse(kNoAssetToEdit);
  const KUID kuid = call.ArgumentKuid();
  const ZEBAssetHandle handle = ZEBOpenAsset(kuid, true, &call.Log());
  PrintResults(call.Log());
  if (handle.IsEmpty()) return Refuse(kUnknownAsset);
  std::string folder;
  {
    const ZEBAssetLock lock(false);
    folder = EditLocation(*handle.Record()).path;
  }
  std::cout << "+ " << kuid.TagText() << " : " << folder << '\n';
  return true;
}

// Opening comes first, so that an asset that isn't open is committed from a copy made here.
bool CommandCommit(const CommandCall& call) {
  if (!call.HasArgument()) return Refuse("-Please specify an asset to commit");
  std::uint8_t notRemoved = 0;
  ZEBAssetHandle handle = ZEBOpenAsset(call.ArgumentKuid(), true, nullptr);
  const bool committed = ZEBCommitAssetEdits(handle, 0, &call.Log(), &notRemoved);
  PrintResults(call.Log());
  return committed;
}

bool CommandRevert(const CommandCall& call) {
  if (!call.HasArgument()) return Refuse("-Please specify an asset to revert");
  return ZEBRevertAssetEdits(ZEBOpenAsset(call.ArgumentKuid(), false, nullptr));
}

bool CommandDelete(const CommandCall& call) {
  if (!call.HasArgument()) return Refuse("-Please specify an asset to delete");
  return ZEBDeleteAsset(call.ArgumentKuid(), true);
}

}  // namespace morvex
