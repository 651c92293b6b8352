#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "tagdata/chump_file.h"
#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"

using namespace morvex;
using namespace QELLib;

namespace {

// Over the shipped data, which is only read.
bool StartServices() {
  ErrorHandler::Create();
  DataManager::Create(MORVEX_QELDATA);
  DataManager::Get()->LoadDefinitions(false);
  return true;
}

}  // namespace

// A configuration of any content against the shipped definitions: both stages give an answer, and when the
// tree is gone nothing of it is left behind. A binary file begins with its own mark, anything else is text.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  [[maybe_unused]] static const bool isStarted = StartServices();
  ErrorHandler::Get()->Clear();
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  TagContainer config = ReadChumpImage(ACSRawDataCore::CopyBytes(data, size));
  if (config.IsEmpty()) ParseSoupText(config, input, false);
  {
    Container root;
    TagContainer out;
    if (root.Load(config)) root.Export(out);
  }
  for (const ErrorRecord& record : ErrorHandler::Get()->GetRecords()) {
    if (record.Target() != nullptr) std::abort();
  }
  if (!DataManager::Get()->AttachmentUsers().empty()) std::abort();
  return 0;
}
