#include "database/catalogue/author_names.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "database/catalogue/kuid_generator.h"

namespace morvex {

Nox::PString ZEBAuthorName(int32_t number) {
  const ZEBAssetLock lock(true);  // an unknown number joins a queue
  const int32_t user = number == 0 ? ZEBLocalUser() : number;
  return ZEBAssetCache::Instance().authors.UserIdToName(user);
}

}  // namespace morvex
