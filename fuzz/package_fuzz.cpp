// Opens any bytes as a package and unpacks all its assets into a scratch folder, as an install does. Whatever the
// package says, nothing may appear beside the folders of its assets.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "../tests/scratch_folder.h"
#include "packages/file_extraction.h"
#include "packages/package_archive.h"

namespace {

void Unpack(const morvex::TagContainer& archive, const std::filesystem::path& folder) {
  const morvex::ArchiveAssets assets(archive);
  for (std::uint32_t i = 0; i < assets.Count(); ++i) {
    const morvex::PackageItem item = assets.At(i);
    morvex::TagContainer config;
    item.ExtractConfig(config);
    (void)item.CheckDsid();
    (void)morvex::ExtractFiles(item.GetFiles(), item.GetCompression(), (folder / std::to_string(i)).string());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const ScratchFolder scratch;
  const std::filesystem::path root(scratch.path());
  const std::filesystem::path package = root / "x.cdp";
  std::ofstream(package, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<long>(size));

  morvex::TagContainer archive;
  if (morvex::OpenArchive(archive, Nox::PString(), package.string()).Empty()) Unpack(archive, root / "out");
  archive.Clear();
  for (const auto& entry : std::filesystem::directory_iterator(root)) {
    if (entry.path() != package && entry.path() != root / "out") std::abort();
  }
  return 0;
}
