// Lines of a command file, as they come from disk.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "frontend/tool/batch_line.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string> arguments = morvex::SplitBatchLine(text);
  std::size_t total = 0;
  for (const std::string& argument : arguments) {
    if (argument.find('"') != std::string::npos) std::abort();
    total += argument.size();
  }
  if (total > text.size()) std::abort();
  (void)morvex::IsIdleLine(arguments);
  return 0;
}
