#include <cstdlib>
#include <string_view>

#include "tagdata/kuid.h"

// Whatever a text reads as must survive its own text form, but for the negative authors of the long form,
// which isn't read.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const morvex::KUID lenient(text, false);
  const morvex::KUID strict(text, true);
  if (!strict.IsNull() && !(strict == lenient)) std::abort();
  const bool readable = lenient.userId >= 0 || lenient.IsVersionless();
  if (!(morvex::KUID(lenient.TagText(), false) == lenient) && readable) std::abort();
  if (lenient.version > morvex::KUID::kMaxVersion) std::abort();
  return 0;
}
