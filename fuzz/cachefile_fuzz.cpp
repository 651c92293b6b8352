// Any bytes as the index of the download cache. Nothing outside the folder may change, what is entered is there, and
// the index that is written reads as the same.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "../tests/scratch_folder.h"
#include "net/transfer/download_cache.h"

namespace {

namespace fs = std::filesystem;
using morvex::DownloadCache;
using morvex::URL;

void Put(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

std::string Get(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void AskAndForget(DownloadCache& cache, const fs::path& outside) {
  for (const char* url : {"http://h/page", "http://h/file", "ftp://h/part", "http://h/OUT"}) {
    const auto found = cache.Find(URL(url));
    if (found && fs::path(found->path).parent_path() != cache.Folder()) std::abort();
    if (found && !fs::is_regular_file(found->path)) std::abort();
    cache.Remove(URL(url));
  }
  cache.DeleteDropped([](const std::string&) { return false; });
  if (Get(outside) != "out") std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchFolder scratch;
  const fs::path folder = fs::path(scratch.path()) / "internet";
  const fs::path outside = fs::path(scratch.path()) / "out";
  const fs::path index = folder / "cachefile.txt";
  fs::create_directories(folder / "sub");
  Put(outside, "out");
  for (const char* name : {"a", "b.htm", "c.zip", "sub/out"})
    Put(folder / name, "out");
  Put(index, std::string(reinterpret_cast<const char*>(data), size));

  { const DownloadCache repaired(folder.string()); }
  const std::string written = Get(index);
  DownloadCache cache(folder.string());
  if (Get(index) != written) std::abort();
  AskAndForget(cache, outside);
  if (Get(folder / "sub/out") != "out") std::abort();
  return 0;
}
