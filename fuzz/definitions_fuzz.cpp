#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"

using namespace morvex;
using namespace QELLib;

namespace {

// Children of all shapes, which definitions of any content may claim.
constexpr std::string_view kConfig = R"(kind "thing"
username "a"
number 1,2,3
file "a.im"
part "b"
asset <kuid:1:2>
mesh-table
{
 default
 {
  mesh "a.im"
  effects
  {
   0
   {
    kind "corona"
    att "a.b"
   }
  }
 }
}
smoke0
{
 rate 1
}
string-table-de
{
 a "b"
}
)";

// One folder for each process, removed when the process ends normally.
struct Scratch {
  Scratch() : path(std::filesystem::temp_directory_path() / ("morvex-fuzz-" + std::to_string(getpid()))) {
    std::filesystem::create_directories(path);
    ErrorHandler::Create();
    DataManager::Create(path.string());
  }
  ~Scratch() {
    DataManager::Destroy();
    std::filesystem::remove_all(path);
  }
  const std::filesystem::path path;
};

}  // namespace

// Definitions of any content against one configuration: an answer, whatever they name and inherit.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const Scratch scratch;
  std::ofstream(scratch.path / "kind.txt", std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  ErrorHandler::Get()->Clear();
  DataManager::Get()->LoadDefinitions(true);
  TagContainer config, out;
  ParseSoupText(config, kConfig, true);
  Container root;
  if (root.Load(config)) root.Export(out);
  root.ContainerTypes();
  return 0;
}
