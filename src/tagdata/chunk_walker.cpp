#include "tagdata/chunk_walker.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "engine/byte_reader.h"

namespace morvex {
namespace {

static_assert(std::endian::native == std::endian::little, "chunk sizes are read as they lie");

uint32_t SizeAt(const uint8_t* at) {
  uint32_t size;
  std::memcpy(&size, at, sizeof size);
  return size;
}

// The bytes of a whole chunk with its size field; 0 if it doesn't lie within `room` bytes, or is too small
// for its name. At least kMinChunkBytes of room must be there.
size_t ChunkBytes(const uint8_t* chunk, size_t room) {
  const size_t size = SizeAt(chunk);
  const size_t nameLength = chunk[4];
  if (size > room - 4 || size < nameLength + 2) return 0;
  return size + 4;
}

}  // namespace

bool ChunkView::NameIs(std::string_view name) const {
  return storedName.starts_with(name) && (storedName.size() == name.size() || storedName[name.size()] == 0);
}

ChunkKind ChunkView::Kind() const {
  switch (type) {
    case ChunkType::kContainer:
      return ChunkKind::kContainer;
    case ChunkType::kInt:
      return ChunkKind::kInt;
    case ChunkType::kFloat:
      return ChunkKind::kFloat;
    case ChunkType::kString:
      return ChunkKind::kString;
    case ChunkType::kBinary:
    case ChunkType::kAligned:
      return ChunkKind::kBinary;
    case ChunkType::kKuid:
      return ChunkKind::kKuid;
    case ChunkType::kNull:
      break;
  }
  return ChunkKind::kNull;
}

std::string_view ChunkView::Text() const {
  const std::string_view all(reinterpret_cast<const char*>(data.data()), data.size());
  return all.substr(0, all.find('\0'));
}

ByteSpan ChunkView::Bytes(const uint8_t* bodyStart) const {
  if (Kind() == ChunkKind::kNull) return {};
  if (type != ChunkType::kAligned) return data;
  const auto offset = static_cast<size_t>(data.data() - bodyStart);
  const size_t padding = (16 - offset % 16) % 16;
  return data.subspan(std::min(padding, data.size()));
}

bool ChunkWalker::Next() {
  const size_t room = sequence_.size() - next_;
  if (room < kMinChunkBytes) return false;
  const uint8_t* chunk = sequence_.data() + next_;
  const size_t size = ChunkBytes(chunk, room);
  if (size == 0) {
    next_ = sequence_.size();
    return false;
  }
  const size_t nameLength = chunk[4];
  chunk_.storedName = {reinterpret_cast<const char*>(chunk + 5), nameLength};
  chunk_.type = static_cast<ChunkType>(chunk[5 + nameLength]);
  chunk_.data = sequence_.subspan(next_ + kMinChunkBytes + nameLength, size - kMinChunkBytes - nameLength);
  offset_ = next_;
  next_ += size;
  return true;
}

// Once for every chunk of every file: the way from one chunk to the next is one load and one addition, and
// nothing else may stand on it.
bool ValidateChunks(ByteSpan sequence) {
  std::array<const uint8_t*, kMaxSoupDepth> outerEnds;
  size_t depth = 0;
  const uint8_t* at = sequence.data();
  const uint8_t* end = at + sequence.size();
  while (true) {
    while (static_cast<size_t>(end - at) >= kMinChunkBytes) {
      const size_t size = ChunkBytes(at, static_cast<size_t>(end - at));
      if (size == 0) return false;
      const size_t nameLength = at[4];
      if (at[5 + nameLength] != static_cast<uint8_t>(ChunkType::kContainer)) {
        at += size;
        continue;
      }
      if (depth == outerEnds.size()) return false;
      outerEnds[depth++] = end;
      end = at + size;
      at += kMinChunkBytes + nameLength;
    }
    if (depth == 0) return true;
    at = end;
    end = outerEnds[--depth];
  }
}

ByteSpan ChumpBody(ByteSpan image, uint32_t& version) {
  Nox::ByteReader in(image);
  const uint32_t signature = in.U32();
  version = in.U32();
  in.U32();
  const uint32_t size = in.U32();
  if (in.Failed() || signature != kChumpSignature || size == 0 || size > kMaxChumpBody) return {};
  const ByteSpan body = in.Bytes(size);
  return ValidateChunks(body) ? body : ByteSpan();
}

}  // namespace morvex
