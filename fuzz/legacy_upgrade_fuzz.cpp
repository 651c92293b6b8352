#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "tagdata/chump_file.h"
#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"
#include "validation/qel/legacy_upgrade.h"
#include "validation/qel/soup_children.h"

using namespace morvex;
using namespace QELLib;

namespace {

namespace fs = std::filesystem;

// An asset's folder with the meshes of all old samples, one folder for each process, removed when the process ends
// normally.
struct Asset {
  Asset() : folder(fs::temp_directory_path() / ("morvex-fuzz-" + std::to_string(getpid()))) {
    for (const char* sample : {"windmill_hainfels", "crossing_tramway", "turntable_hainfels", "cab_vs41"})
      fs::copy(fs::path(MORVEX_SAMPLES) / sample, folder,
               fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    ErrorHandler::Create();
    DataManager::Create(MORVEX_QELDATA);
    DataManager::Get()->LoadDefinitions(false);
    DataManager::Get()->SetAsset("", folder.string());
  }
  ~Asset() {
    DataManager::Get()->ReleaseAsset();
    fs::remove_all(folder);
  }
  const fs::path folder;
};

void Demand(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

// A configuration of any content as one of an old build: it comes out complete and without a word, and can be judged.
// A binary file begins with its own mark, anything else is text.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const Asset asset;
  ErrorHandler::Get()->Clear();
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  TagContainer config = ReadChumpImage(ACSRawDataCore::CopyBytes(data, size));
  if (config.IsEmpty()) ParseSoupText(config, input, false);
  config = TakeAsTree(config);
  UpgradeLegacyConfig(config);
  Demand(ErrorHandler::Get()->GetRecords().empty());
  Demand(config.GetFloat(Nox::PString("morvex-build")) == 2.7f);
  for (const char* category : {"category-era", "category-class", "category-region"})
    Demand(config.HasTag(Nox::PString(category)));

  Container root;
  TagContainer out;
  if (root.Load(config)) root.Export(out);
  return 0;
}
