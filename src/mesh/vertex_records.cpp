#include "mesh/vertex_records.h"

#include <cstring>

namespace morvex {
namespace {

// Vertices lie in whole floats, and nearly all items are pairs or triples of them.
template <std::size_t bytes>
void CopyItems(std::uint8_t* to, std::size_t toStride, const std::uint8_t* from, std::size_t fromStride,
               std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    std::memcpy(to + i * toStride, from + i * fromStride, bytes);
}

void CopyItems(std::size_t bytes, std::uint8_t* to, std::size_t toStride, const std::uint8_t* from,
               std::size_t fromStride, std::size_t count) {
  switch (bytes) {
    case 4:
      return CopyItems<4>(to, toStride, from, fromStride, count);
    case 8:
      return CopyItems<8>(to, toStride, from, fromStride, count);
    case 12:
      return CopyItems<12>(to, toStride, from, fromStride, count);
    default:
      for (std::size_t i = 0; i < count; ++i)
        std::memcpy(to + i * toStride, from + i * fromStride, bytes);
  }
}

// The block of the chunk whose vertices are these records byte for byte, or null.
const Nox::VertexType::Item* SameBlock(const Nox::VertexType& type, std::size_t stride,
                                       std::span<const RecordItem> layout) {
  if (layout.empty()) return nullptr;
  const Nox::VertexType::Item* const first = type.Find(layout.front().id);
  if (first == nullptr || type.Strides()[first->block] != stride) return nullptr;
  std::size_t offset = 0;
  for (const RecordItem& item : layout) {
    const Nox::VertexType::Item* const own = type.Find(item.id);
    if (own == nullptr || own->block != first->block || own->offset != offset || own->bytes != item.bytes)
      return nullptr;
    offset += item.bytes;
  }
  return offset == stride ? first : nullptr;
}

}  // namespace

void CopyRecordsIn(Nox::GeometryChunk& chunk, std::span<const std::uint8_t> records, std::size_t stride,
                   std::span<const RecordItem> layout) {
  if (records.empty()) return;
  if (const auto* const same = SameBlock(chunk.Vertices(), stride, layout)) {
    std::memcpy(chunk.Block(same->block).data(), records.data(), records.size());
    return;
  }
  const std::uint8_t* from = records.data();
  for (const RecordItem& item : layout) {
    const Nox::Stream stream = chunk.GetStream(item.id);
    if (stream && stream.bytes == item.bytes)
      CopyItems(item.bytes, stream.data, stream.stride, from, stride, chunk.Size().vertices);
    from += item.bytes;
  }
}

void CopyRecordsOut(const Nox::GeometryChunk& chunk, std::span<const RecordItem> layout,
                    std::vector<std::uint8_t>& out) {
  std::size_t stride = 0;
  for (const RecordItem& item : layout)
    stride += item.bytes;
  const std::size_t start = out.size();
  out.resize(start + chunk.Size().vertices * stride);
  std::uint8_t* to = out.data() + start;
  for (const RecordItem& item : layout) {
    const Nox::ConstStream stream = chunk.GetStream(item.id);
    if (stream && stream.bytes == item.bytes)
      CopyItems(item.bytes, to, stride, stream.data, stream.stride, chunk.Size().vertices);
    to += item.bytes;
  }
}

void FillStream(Nox::GeometryChunk& chunk, Nox::StreamId id, std::uint32_t word) {
  const Nox::Stream stream = chunk.GetStream(id);
  if (!stream || stream.bytes != sizeof word) return;
  for (std::size_t i = 0; i < chunk.Size().vertices; ++i)
    std::memcpy(stream.At(i), &word, sizeof word);
}

}  // namespace morvex
