#include "database/operations/config_file.h"

#include <string_view>

#include "database/catalogue/config_reader.h"
#include "engine/file.h"
#include "engine/path.h"
#include "tagdata/disk.h"
#include "tagdata/tag_container.h"
#include "tagdata/temporary_path.h"

namespace morvex {
namespace {

std::string_view ExtensionOf(ConfigForm form) {
  return form == ConfigForm::kChump ? "chump" : "txt";
}

std::string PathOf(const Nox::Location& folder, ConfigForm form) {
  return Nox::Path::AddPath(folder.path, form == ConfigForm::kChump ? kConfigChump : kConfigText);
}

ConfigForm OtherForm(ConfigForm form) {
  return form == ConfigForm::kChump ? ConfigForm::kText : ConfigForm::kChump;
}

}  // namespace

StagedConfig::~StagedConfig() {
  if (!file_.path.empty()) Nox::File::Unlink(file_);
}

bool StagedConfig::Write(const Nox::Location& beside, const TagContainer& config, ConfigForm form) {
  std::string path;
  if (!CreateTemporaryFilePath(beside.pack, beside.path, "temp", ExtensionOf(form), path)) return false;
  file_ = {beside.pack, path};
  form_ = form;
  if (!config.Save(file_.pack, file_.path)) return false;
  TagContainer written;
  return written.Load(file_.pack, file_.path) && (written.GetCount() == 0) == (config.GetCount() == 0);
}

bool StagedConfig::MoveInto(const Nox::Location& folder) {
  if (!DiskRename(file_.pack, file_.path, PathOf(folder, form_))) return false;
  file_.path.clear();
  Nox::File::SyncFolder(folder);
  Nox::File::Unlink({folder.pack, PathOf(folder, OtherForm(form_))});
  return true;
}

bool WriteConfig(const Nox::Location& folder, const TagContainer& config, ConfigForm form) {
  StagedConfig staged;
  return staged.Write({folder.pack, Nox::Path::PrevDir(folder.path)}, config, form) &&
         staged.MoveInto(folder);
}

void RemoveAssetFolder(const Nox::Location& folder) {
  Nox::File::Unlink({folder.pack, PathOf(folder, ConfigForm::kChump)});
  Nox::File::Unlink({folder.pack, PathOf(folder, ConfigForm::kText)});
  DiskDelete(folder.pack, folder.path);
}

}  // namespace morvex
