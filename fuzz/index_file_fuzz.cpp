// Any bytes as an index file. What is read must be written back as a file that reads as the same tables.

#include <cstdlib>
#include <string>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/index_format.h"
#include "database/catalogue/index_reader.h"
#include "database/catalogue/index_writer.h"
#include "engine/file.h"

#include "../tests/scratch_folder.h"

namespace {

using namespace morvex;

// A folder of its own, removed when the process exits.
class Scratch {
 public:
  Scratch() : path_((std::filesystem::temp_directory_path() / "morvex-fuzz-XXXXXX").string()) {
    if (mkdtemp(path_.data()) == nullptr) std::abort();
  }
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

// With the header made right, or hardly any input would get past it.
std::string WithHeader(const uint8_t* data, size_t size) {
  std::string bytes(reinterpret_cast<const char*>(data), size);
  const uint32_t words[] = {kIndexMagic, kIndexVersion, static_cast<uint32_t>(size)};
  for (size_t i = 0; i < 12 && i < size; ++i)
    bytes[i] = static_cast<char>(words[i / 4] >> (8 * (i % 4)));
  return bytes;
}

bool Read(const std::string& path) {
  ZEBAssetCache::Instance().Clear();
  return ReadIndex(path, ZEBAssetCache::Instance());
}

void AskEverything() {
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  cache.View().ForEach([&](ZEBAssetInfo& record) {
    cache.MissingDeps(record);
    cache.FaultyDeps(record);
    cache.IsArchived(record);
    cache.IsObsoleted(record);
    record.SearchWords();
    cache.notes.Forget(record.Kuid());
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const Scratch scratch;
  const std::string path = scratch.Path() + "/index";
  const std::string bytes = WithHeader(data, size);
  Nox::File file;
  if (!file.Open(path, Nox::OpenMode::kCreate) || file.Write(bytes.data(), bytes.size()) != bytes.size())
    std::abort();
  file.Close();
  if (!Read(path)) return 0;
  const size_t count = ZEBAssetCache::Instance().Count();
  AskEverything();
  if (!WriteIndex(path, ZEBAssetCache::Instance()) || !Read(path)) std::abort();
  if (ZEBAssetCache::Instance().Count() != count) std::abort();
  return 0;
}
