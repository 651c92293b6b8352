#include "database/catalogue/pack_table.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

#include "database/catalogue/kuid_generator.h"
#include "engine/file.h"
#include "engine/name_lookup.h"
#include "engine/path.h"
#include "engine/resource_database.h"

namespace morvex {

class MorvexResourceDatabase final : public Nox::ResourceDatabase {
 public:
  // A name that leads out of the root stays unbound.
  MorvexResourceDatabase(Nox::PString name, std::string_view root) : ResourceDatabase(name) {
    const std::string folder = Nox::Path::AddPath(root, name.View());
    if (!Nox::Path::IsBelow(root, folder)) return;
    const auto archive = Nox::FindExisting(folder + ".ja");
    if (archive && !Nox::File::IsFolder(*archive)) {
      Nox::File::Subst(name, *archive, false);
    } else {
      Nox::File::Subst(name, Nox::Path::AddSlash(Nox::FindExisting(folder).value_or(folder)), true);
    }
  }
  ~MorvexResourceDatabase() override { Nox::File::Subst(Name(), {}, true); }
};

namespace {

struct Pack {
  Nox::PString name;
  std::unique_ptr<MorvexResourceDatabase> database;
  int uses = 0;
};

struct PackTable {
  std::mutex mutex;
  std::vector<Pack> packs;
};

// Never destroyed: at the end of the process the packs it would unmount may be gone already.
PackTable& Table() {
  static PackTable& table = *new PackTable;
  return table;
}

}  // namespace

MorvexResourceDatabase* ZEBMountPack(Nox::PString name, std::string_view root) {
  PackTable& table = Table();
  const std::lock_guard guard(table.mutex);
  const auto known = std::find_if(table.packs.begin(), table.packs.end(),
                                  [&](const Pack& pack) { return pack.name == name; });
  if (known != table.packs.end()) {
    ++known->uses;
    return known->database.get();
  }
  if (table.packs.size() >= kMaxPacks) {
    std::erase_if(table.packs, [](const Pack& pack) { return pack.uses == 0; });
  }
  if (table.packs.size() >= kMaxPacks) return nullptr;
  table.packs.push_back({name, std::make_unique<MorvexResourceDatabase>(name, root), 1});
  return table.packs.back().database.get();
}

void ZEBUnmountPack(MorvexResourceDatabase* pack) {
  if (pack == nullptr) return;
  PackTable& table = Table();
  const std::lock_guard guard(table.mutex);
  for (Pack& entry : table.packs) {
    if (entry.database.get() == pack && entry.uses > 0) --entry.uses;
  }
}

void ZEBUnmountAllPacks() {
  PackTable& table = Table();
  const std::lock_guard guard(table.mutex);
  table.packs.clear();
}

PackMount::PackMount(Nox::PString name) {
  if (!name.Empty()) pack_ = ZEBMountPack(name, ZEBRoot());
}

Nox::ResourceDatabase* PackMount::Database() const {
  return pack_;
}

}  // namespace morvex
