#include "database/catalogue/kuid_generator.h"

#include <cstdio>
#include <mutex>

#include "database/catalogue/asset_lock.h"
#include "database/catalogue/asset_status.h"
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

// Guarded by `mutex`, which is taken inside the database lock.
struct Generator {
  std::recursive_mutex mutex;
  std::string root = kNoRoot;
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

KUID StoredBase(const Generator& state) {
  TagContainer soup;
  if (!soup.Load(Nox::PString(), Nox::Path::AddPath(state.root, kBaseFile))) return {};
  return soup.GetKUID(BaseTag());
}

bool StoreBase(const Generator& state) {
  TagContainer soup;
  soup.SetKUID(BaseTag(), state.base);
  return soup.Save(Nox::PString(), Nox::Path::AddPath(state.root, kBaseFile));
}

// Another process may have given out KUIDs while it owned the installation.
void FollowOwnership(Generator& state) {
  const uint32_t seen = Ownership().TimesTaken();
  if (seen == state.ownershipSeen) return;
  state.ownershipSeen = seen;
  const KUID stored = StoredBase(state);
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
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  return state.root;
}

void ZEBSetRoot(std::string_view path) {
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  state.root = path;
  TakeBase(state, StoredBase(state));
}

void ZEBForgetRoot() {
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  state.root = kNoRoot;
  state.base = KUID();
  state.localUser = KUID::kTemporaryAuthor;
  currentAuthorId = KUID::kTemporaryAuthor;
}

bool ZEBSetBaseKuid(const KUID& kuid) {
  if (kuid.IsNull()) return false;
  Generator& state = TheGenerator();
  const std::lock_guard guard(state.mutex);
  TakeBase(state, kuid);
  return StoreBase(state);
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
  ZEBAssetStatus status;
  do {
    state.base = NextOf(state.base);
  } while (ZEBIsStarted() && ZEBGetAssetStatus(state.base, status));
  if (!StoreBase(state)) std::fputs("Unable to write 'Settings/kuid.txt' file.\n", stdout);
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
