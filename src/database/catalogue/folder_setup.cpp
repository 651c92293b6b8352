#include "database/catalogue/folder_setup.h"

#include <array>
#include <string>

#include "database/catalogue/kuid_generator.h"
#include "database/catalogue/pack_table.h"
#include "engine/file.h"
#include "engine/path.h"
#include "tagdata/disk.h"

namespace morvex {
namespace {

constexpr std::array kFolders = {"cache",         "cache/bookmarks", "cache/libraries",
                                 "cache/syslibs", "cache/sessions",  "cache/water",
                                 "local",         "editing",         "settings"};
constexpr std::array kStaleFolders = {"cache/libraries", "cache/morvexmap"};
constexpr std::array kPacks = {"trains", "data", "video", "local", "editing", "cache", "settings"};

std::array<MorvexResourceDatabase*, kPacks.size()> mounted{};

}  // namespace

void ZEBPrepareFolders(std::string_view root) {
  SetRootPath(root);
  ZEBSetRoot(root);
  for (const char* folder : kStaleFolders) {
    const std::string path = Nox::Path::AddPath(root, folder);
    if (Nox::File::Exists(path)) Nox::File::Prune(path);
  }
  for (const char* folder : kFolders)
    Nox::File::Md(Nox::Path::AddPath(root, folder));
  for (size_t i = 0; i < kPacks.size(); ++i)
    mounted[i] = ZEBMountPack(Nox::PString(kPacks[i]), root);
}

void ZEBReleaseFolders() {
  for (MorvexResourceDatabase*& pack : mounted) {
    ZEBUnmountPack(pack);
    pack = nullptr;
  }
  ZEBUnmountAllPacks();
}

}  // namespace morvex
