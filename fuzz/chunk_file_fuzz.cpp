#include <cstdint>
#include <cstdlib>

#include "tagdata/buffer_stream.h"
#include "tagdata/chump_file.h"
#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"

using namespace morvex;

// Any bytes give a soup or an empty handle. A soup can be walked, changed and written, and what is written
// reads back as the same.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  TagContainer soup = ReadChumpImage(ACSRawDataCore::CopyBytes(data, size));
  TBuffer stream;
  stream.Write(data, size);
  stream.SeekTo(0);
  if (ReadChumpFile(stream).IsValid() != soup.IsValid()) std::abort();
  if (soup.IsEmpty()) return 0;

  const std::string image = ChumpImage(soup);
  const TagContainer view = ReadChumpImage(ACSRawDataCore::CopyBytes(image.data(), image.size()));
  if (view.IsValid() && ChumpImage(view) != image) std::abort();
  SoupText(soup);

  TagContainer copy;
  copy.CopyFrom(soup);
  if (copy.GetCount() != soup.GetCount() || ChumpImage(copy) != image) std::abort();
  const uint32_t count = soup.GetCount();
  soup.SetInt(soup.GetName(0), 1);
  if (soup.GetCount() != (count == 0 ? 1 : count)) std::abort();
  while (soup.GetCount() > count / 2)
    soup.Remove(soup.GetName(soup.GetCount() / 2));
  return 0;
}
