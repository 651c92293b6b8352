#include "tagdata/tag_value.h"

#include "tagdata/acs_converter.h"

namespace morvex {

TagValue::TagValue(const ACSChunk& tag, ChunkKind wanted) {
  if (tag.GetKind() == wanted) {
    bytes_ = {reinterpret_cast<const char*>(tag.GetData()), tag.GetDataSize()};
    return;
  }
  Convert(tag.GetKind(), tag.GetRawData(), wanted, converted_);
  bytes_ = RawBytes(converted_);
}

}  // namespace morvex
