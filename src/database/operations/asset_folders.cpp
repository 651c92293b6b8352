#include "database/operations/asset_folders.h"

#include <string>
#include <string_view>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_info.h"
#include "database/catalogue/database.h"
#include "engine/file.h"
#include "engine/path.h"
#include "engine/time.h"
#include "tagdata/disk.h"
#include "tagdata/temporary_path.h"

namespace morvex {
namespace {

void SetMissingTimes(ZEBAssetInfo& record) {
  AssetNumbers numbers = record.Numbers();
  if (numbers.modifiedTime == 0) numbers.modifiedTime = Nox::TimeStamp();
  if (numbers.installedTime == 0) numbers.installedTime = Nox::TimeStamp();
  record.SetNumbers(numbers);
}

bool MakeFolder(ZEBAssetInfo& record, AssetText which, std::string_view parent, std::string_view prefix,
                std::string_view name) {
  if (!record.Text(which).empty()) return false;
  std::string path;
  if (!CreateTemporaryFilePath({}, Nox::Path::AddPath(GetRootPath(), parent), prefix, {}, path, name))
    return false;
  if (!Nox::File::Md(path)) return false;

  const bool wasInstalled = record.IsInstalled();
  record.SetText(which,
                 Nox::Path::DelSlash(Nox::Path::MakeRelativeTo(path, Nox::Path::AddSlash(GetRootPath()))));
  SetMissingTimes(record);
  if (!wasInstalled) ZEBAssetCache::Instance().ForgetDependants(record.Kuid());
  ZEBMarkChanged(kContentChanged);
  return true;
}

}  // namespace

bool MakeEditFolder(ZEBAssetInfo& record) {
  return MakeFolder(record, AssetText::kEditPath, "editing", "edit ", record.DisplayName());
}

bool MakeLocalFolder(ZEBAssetInfo& record) {
  return MakeFolder(record, AssetText::kLocalPath, "local", "content ", {});
}

}  // namespace morvex
