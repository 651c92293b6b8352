#include "database/catalogue/kuid_generator.h"

#include <cstdio>
#include <mutex>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/database.h"
#include "database/catalogue/instance_ownership.h"
#include "engine/path.h"
#include "engine/rand.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

constexpr const char* kNoRoot = "-foobar-";
constexpr const char* kBaseFile = "settings/kuid.txt";
constexpr int32_t kFirstContent = 1000;

// With a mutex of its own, under which no other is taken.
struct Root {
  std::mutex mutex;
  std::string path = kNoRoot;
};

Root& TheRoot() {
  static Root root;
  return root;
}

void StoreRoot(std::string_view path) {
  Root& root = TheRoot();
  const std::lock_guard guard(root.mutex);
  root.path = path;
}

// Guarded by `mutex`, which is taken inside the database lock.
struct Generator {
  std::recursive_mutex mutex;
  KUID base;
  int32_t localUser = KUID::kTemporaryAuthor;
  uint32_t ownershipSeen = 0;  // the base is as it was on the disk when the installation was taken over
};

Generator& TheGenerator() {
  static Generator state;
  return state;
}

const Nox::PString& BaseTag() {
  static const Nox::PString tag("base-kuid");
  return tag;
}

void TakeBase(Generator& state, const KUID& kuid) {
  state.base = kuid;
  if (kuid.IsNull()) return;
  state.localUser = kuid.userId;
  currentAuthorId = kuid.userId;
}

KUID StoredBase() {
  TagContainer soup;
  if (!soup.Load(Nox::PString(), Nox::Path::AddPath(ZEBRoot(), kBaseFile))) return {};
  return soup.GetKUID(BaseTag());
}

bool StoreBase(const KUID& base) {
  TagContainer soup;
  soup.SetKUID(BaseTag(), base);
  return soup.Save(Nox::PString(), Nox::Path::AddPath(ZEBRoot(), kBaseFile));
}

// Another process may have given out KUIDs while it owned the installation.
void FollowOwnership(Generator& state) {
  const uint32_t seen = Ownership().TimesTaken();
  if (seen == state.ownershipSeen) return;
  state.ownershipSeen = seen;
  const KUID stored = StoredBase();
  if (!stored.IsNull()) TakeBase(state, stored);
}

KUID NextOf(const KUID& kuid) {
  return KUID::Make(kuid.userId, static_cast<int32_t>(static_cast<uint32_t>(kuid.contentId) + 1));
}

}  // namespace

bool ZEBGetRoot(std::string& path) {
  path = ZEBRoot();
  return true;
}

std::string ZEBRoot() {
  Root& root = TheRoot();
  const std::lock_guard guard(root.mutex);
  return root.path;
}

void ZEBSetRoot(std::string_view path) {
  StoreRoot(path);
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  TakeBase(state, StoredBase());
}

void ZEBForgetRoot() {
  StoreRoot(kNoRoot);
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  state.base = KUID();
  state.localUser = KUID::kTemporaryAuthor;
  currentAuthorId = KUID::kTemporaryAuthor;
}

bool ZEBSetBaseKuid(const KUID& kuid) {
  if (kuid.IsNull()) return false;
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  TakeBase(state, kuid);
  return StoreBase(state.base);
}

void ZEBSyncBaseKuid() {
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  FollowOwnership(state);
  if (state.base.userId != state.localUser) ZEBSetBaseKuid(KUID::Make(state.localUser, kFirstContent));
}

KUID ZEBGenerateKUID() {
  const ZEBAssetLock lock(true);
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  ZEBSyncBaseKuid();
  if (state.base.IsNull()) {
    state.base = KUID::Make(KUID::kTemporaryAuthor, Nox::Rand::Global().NextInt() / 2);
  }
  do {
    state.base = NextOf(state.base);
  } while (ZEBIsStarted() && ZEBAssetCache::Instance().Find(state.base) != nullptr);
  if (!StoreBase(state.base)) std::fputs("Unable to write 'Settings/kuid.txt' file.\n", stdout);
  return state.base;
}

int32_t ZEBLocalUser() {
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  return state.localUser;
}

KUID ZEBBaseKuid() {
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  return state.base;
}

}  // namespace morvex
