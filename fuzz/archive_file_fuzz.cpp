// Any bytes as an asset archive: listed, taken over into the tables, and its items read as a restore does. A walk
// ends, and a damaged file changes nothing.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "database/catalogue/archive.h"
#include "database/catalogue/archive_file.h"
#include "database/catalogue/asset_cache.h"
#include "packages/package_item.h"
#include "tagdata/buffer_stream.h"
#include "tagdata/chump_file.h"

namespace {

using namespace morvex;

// With the magic and the version made right, or hardly any input would get past them.
void Fill(TBuffer& file, const uint8_t* data, size_t size) {
  file.WriteU32s(kArchiveMagic, kArchiveVersion);
  if (size > 8) file.Write(data + 8, size - 8);
  file.SeekTo(0);
}

size_t ReadItems(TBuffer& file) {
  ArchiveEntries entries(file);
  size_t count = 0;
  while (entries.Next()) {
    ++count;
    const PackageItem item(ReadChumpFile(file));
    TagContainer config;
    if (!item.IsEmpty() && item.GetKUID() == entries.Kuid()) item.ExtractConfig(config);
  }
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  TBuffer file;
  Fill(file, data, size);
  (void)ReadArchiveHeader(file);
  const int64_t behindHeader = file.Position();
  if (ReadItems(file) > size / 28) std::abort();

  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  cache.Clear();
  ZEBArchive& archive = cache.archives.Add();
  const KUID before(1, 2, 3);
  if (!archive.Add(before)) std::abort();
  file.SeekTo(behindHeader);
  if (archive.Scan(file)) {
    for (const KUID& kuid : archive.kuids) {
      const ZEBAssetInfo* record = cache.Find(kuid);
      if (record == nullptr || !record->Has(AssetState::kArchived)) std::abort();
    }
  } else if (archive.kuids.Count() != 1 || cache.Count() != 0) {
    std::abort();
  }
  return 0;
}
