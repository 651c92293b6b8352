#include <cstdint>
#include <cstdlib>

#include "tagdata/chump_file.h"
#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"

using namespace morvex;

// Any text gives a soup. What is written of it reads back as what is written again, from both forms.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  TagContainer soup;
  ParseSoupText(soup, {reinterpret_cast<const char*>(data), size}, false);
  const std::string image = ChumpImage(soup);
  const TagContainer view = ReadChumpImage(ACSRawDataCore::CopyBytes(image.data(), image.size()));
  if (view.IsValid() && ChumpImage(view) != image) std::abort();

  TagContainer again;
  ParseSoupText(again, SoupText(soup), false);
  if (again.GetCount() > soup.GetCount()) std::abort();
  return 0;
}
