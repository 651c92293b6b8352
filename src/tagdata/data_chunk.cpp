#include "tagdata/data_chunk.h"

namespace morvex {

TDBDataChunk::TDBDataChunk(const Raw& body, const ChunkView& chunk)
    : owner_(body), place_(chunk.data.data()), bytes_(chunk.Bytes(RawData(body))), kind_(chunk.Kind()) {
  // No data is a null pointer, as with any other chunk.
  if (bytes_.empty()) bytes_ = {};
}

TDBDataChunk::TDBDataChunk(const ChunkView& chunk, const Raw& data)
    : owner_(data), place_(chunk.data.data()), bytes_(RawData(data), RawSize(data)), kind_(chunk.Kind()) {}

Raw TDBDataChunk::ShareData() const {
  return ACSRawDataCore::ViewBytes(GetData(), GetDataSize(), owner_);
}

}  // namespace morvex
