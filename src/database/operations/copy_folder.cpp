#include "database/operations/copy_folder.h"

#include <string>
#include <string_view>
#include <utility>

#include "database/catalogue/config_reader.h"
#include "database/catalogue/pack_table.h"
#include "database/operations/config_file.h"
#include "database/operations/file_name_rule.h"
#include "engine/file.h"
#include "engine/path.h"
#include "frontend/messages/results_log.h"
#include "packages/folder_copy.h"
#include "tagdata/disk.h"
#include "tagdata/tag_container.h"
#include "tagdata/temporary_path.h"

namespace morvex {
namespace {

bool Exists(const Nox::Location& folder, std::string_view name) {
  return Nox::File::Exists({folder.pack, Nox::Path::AddPath(folder.path, name)});
}

// A running program that holds the configuration open in its own way stops the copy before anything has changed.
bool CanReplace(const Nox::Location& folder) {
  const std::string_view name = Exists(folder, kConfigText) ? kConfigText : kConfigChump;
  if (!Exists(folder, name)) return true;
  Nox::File config;
  return config.Open({folder.pack, Nox::Path::AddPath(folder.path, name)}, Nox::OpenMode::kUpdate);
}

bool Rename(const Nox::Location& from, const Nox::Location& to) {
  return DiskRename(from.pack, from.path, to.path);
}

// The configuration that the new folder gets; empty if the source has none that can be read, or one that says
// nothing, as an editor leaves behind that met a full disk.
TagContainer NewConfig(const Nox::Location& source) {
  const TagContainer config = ReadConfig(source);
  if (config.GetCount() == 0) return {};
  TagContainer changed;
  changed.CopyFrom(config);
  ApplyFileNameRule(changed, source.path);
  return changed;
}

// One replacement of a folder. The two names beside the target are for the new content while it is being made, and
// for the old one until the new one is complete.
class FolderReplacement {
 public:
  FolderReplacement(const Nox::Location& source, const Nox::Location& target, uint32_t mode)
      : source_(source),
        target_(target),
        parent_{target.pack, Nox::Path::PrevDir(target.path)},
        form_((mode & kCopyChump) != 0 ? ConfigForm::kChump : ConfigForm::kText),
        mayMove_((mode & kCopyMove) != 0 && source.pack == target.pack) {}

  bool Run() {
    if (!CanReplace(target_) || !ChooseName(fresh_) || !ChooseName(saved_)) return false;
    if (!mayMove_) return Copy();
    switch (Move()) {
      case Moved::kYes:
        return true;
      case Moved::kImpossible:
        return Copy();
      case Moved::kFailed:
        break;
    }
    return false;
  }

 private:
  enum class Moved {
    kYes,
    kImpossible,  // the system can't rename the source to the target: they lie on different disks
    kFailed,      // and everything is as it was
  };

  bool ChooseName(Nox::Location& location) const {
    location.pack = target_.pack;
    return CreateTemporaryFilePath(parent_.pack, parent_.path, "temp", {}, location.path);
  }

  // The source becomes the target. Its new configuration is complete on the disk before the first rename and in its
  // place before anything is removed.
  Moved Move() {
    const TagContainer config = NewConfig(source_);
    StagedConfig staged;
    if (config.IsEmpty() || !staged.Write(parent_, config, form_)) return Moved::kFailed;
    if (!Rename(target_, saved_)) return Moved::kFailed;
    if (!Rename(source_, target_)) {
      Rename(saved_, target_);
      return Moved::kImpossible;
    }
    if (!staged.MoveInto(target_)) {
      Rename(target_, source_);
      Rename(saved_, target_);
      return Moved::kFailed;
    }
    DropSaved();
    return Moved::kYes;
  }

  bool Copy() {
    if (Fill() && Rename(target_, saved_)) {
      if (Rename(fresh_, target_)) {
        DropSaved();
        return true;
      }
      Rename(saved_, target_);
    }
    RemoveAssetFolder(fresh_);
    return false;
  }

  // Makes the new content. The configuration goes in last. A source whose configuration can't be read gives a folder
  // without one, which can be mended but not committed as it is.
  bool Fill() const {
    const PackMount mount(source_.pack);
    ResultsLog unread;
    if (!CopyAssetFiles(source_, FullPath(fresh_), unread)) return false;
    const TagContainer config = NewConfig(source_);
    if (config.IsEmpty()) return form_ == ConfigForm::kText;
    return WriteConfig(fresh_, config, form_);
  }

  static std::string FullPath(const Nox::Location& location) {
    if (location.pack.Empty()) return location.path;
    return Nox::Path::AddPath(Nox::Path::AddPath(GetRootPath(), location.pack.View()), location.path);
  }

  void DropSaved() const {
    Nox::File::SyncFolder(parent_);
    RemoveAssetFolder(saved_);
  }

  const Nox::Location& source_;
  const Nox::Location& target_;
  const Nox::Location parent_;
  const ConfigForm form_;
  const bool mayMove_;
  Nox::Location fresh_;
  Nox::Location saved_;
};

}  // namespace

bool ZEBCopyAssetFolder(const Nox::Location& source, const Nox::Location& target, uint32_t mode) {
  return FolderReplacement(source, target, mode).Run();
}

}  // namespace morvex
