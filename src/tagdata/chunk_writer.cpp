#include "tagdata/chunk_writer.h"

#include <bit>
#include <cstring>

#include "tagdata/acs_chunk.h"
#include "tagdata/stream.h"

namespace morvex {
namespace {

// Data from this size on is kept by reference.
constexpr uint32_t kShareFrom = 4096;

void PutU32(char* at, uint32_t value) {
  for (int i = 0; i < 4; ++i)
    at[i] = static_cast<char>(value >> (8 * i));
}

ChunkType TypeOf(ChunkKind kind) {
  switch (kind) {
    case ChunkKind::kContainer:
      return ChunkType::kContainer;
    case ChunkKind::kBinary:
      return ChunkType::kBinary;
    case ChunkKind::kFloat:
      return ChunkType::kFloat;
    case ChunkKind::kString:
    case ChunkKind::kText:
      return ChunkType::kString;
    case ChunkKind::kInt:
      return ChunkType::kInt;
    case ChunkKind::kKuid:
      return ChunkType::kKuid;
    case ChunkKind::kNull:
      break;
  }
  return ChunkType::kNull;
}

}  // namespace

char* ChunkWriter::Grow(size_t count) {
  if (count > bytes_.size() - used_) bytes_.resize(std::max(2 * bytes_.size(), used_ + count));
  used_ += count;
  return bytes_.data() + used_ - count;
}

std::string ChunkWriter::TakeBody() {
  bytes_.resize(used_);
  used_ = 0;
  return std::move(bytes_);
}

// The size holds for a leaf and is patched for a container.
char* ChunkWriter::AppendChunk(std::string_view name, ChunkKind kind, size_t dataSize, size_t room) {
  if (dropped_ != 0 || name.size() > kMaxChunkName) return nullptr;
  const size_t nameLength = name.empty() ? 0 : name.size() + 1;
  char* at = Grow(kMinChunkBytes + nameLength + room);
  PutU32(at, static_cast<uint32_t>(2 + nameLength + dataSize));
  at[4] = static_cast<char>(nameLength);
  at += 5;
  if (nameLength != 0) {
    std::memcpy(at, name.data(), name.size());
    at[name.size()] = '\0';
  }
  at[nameLength] = static_cast<char>(TypeOf(kind));
  return at + nameLength + 1;
}

std::string_view ChunkWriter::NameAt(size_t chunk) const {
  const size_t length = static_cast<uint8_t>(bytes_[chunk + 4]);
  return Bytes().substr(chunk + 5, length == 0 ? 0 : length - 1);
}

void ChunkWriter::SetType(size_t chunk, ChunkType type) {
  const size_t nameLength = static_cast<uint8_t>(bytes_[chunk + 4]);
  bytes_[chunk + 5 + nameLength] = static_cast<char>(type);
}

void ChunkWriter::BeginContainer(std::string_view name) {
  const Open open{used_, Size()};
  if (AppendChunk(name, ChunkKind::kContainer, 0, 0) != nullptr) {
    open_.push_back(open);
  } else {
    ++dropped_;
  }
}

void ChunkWriter::EndContainer() {
  if (dropped_ != 0) {
    --dropped_;
    return;
  }
  const Open open = open_.back();
  open_.pop_back();
  const uint64_t size = Size() - open.sizeBefore - sizeof(uint32_t);
  PutU32(bytes_.data() + open.sizeField, static_cast<uint32_t>(size));
}

void ChunkWriter::Null(std::string_view name) {
  AppendChunk(name, ChunkKind::kNull, 0, 0);
}

void ChunkWriter::Int(std::string_view name, int32_t value) {
  if (char* at = AppendChunk(name, ChunkKind::kInt, 4, 4)) PutU32(at, static_cast<uint32_t>(value));
}

void ChunkWriter::Float(std::string_view name, float value) {
  if (char* at = AppendChunk(name, ChunkKind::kFloat, 4, 4)) PutU32(at, std::bit_cast<uint32_t>(value));
}

void ChunkWriter::String(std::string_view name, std::string_view text) {
  const size_t size = text.empty() ? 0 : text.size() + 1;
  char* at = AppendChunk(name, ChunkKind::kString, size, size);
  if (at == nullptr || size == 0) return;
  std::memcpy(at, text.data(), text.size());
  at[text.size()] = '\0';
}

void ChunkWriter::Data(std::string_view name, ChunkKind kind, const void* bytes, size_t size) {
  if (kind == ChunkKind::kNull) size = 0;
  char* at = AppendChunk(name, kind, size, size);
  if (at != nullptr && size != 0) std::memcpy(at, bytes, size);
}

void ChunkWriter::Data(std::string_view name, ChunkKind kind, const Raw& data) {
  if (RawSize(data) < kShareFrom || kind == ChunkKind::kNull) {
    Data(name, kind, RawData(data), RawSize(data));
  } else if (AppendChunk(name, kind, data->Size(), 0) != nullptr) {
    shared_.push_back({used_, data});
    sharedSize_ += data->Size();
  }
}

void ChunkWriter::Leaf(std::string_view name, const ACSChunk& leaf) {
  if (leaf.GetDataSize() < kShareFrom) {
    Data(name, leaf.GetKind(), leaf.GetData(), leaf.GetDataSize());
  } else {
    Data(name, leaf.GetKind(), leaf.GetRawData());
  }
}

// Every chunk lies within the body, so its size alone tells.
bool ChunkWriter::Fits() const {
  return Size() <= kMaxChumpBody;
}

std::string ChunkWriter::Header() const {
  std::string header(kChumpHeaderSize, '\0');
  PutU32(header.data(), kChumpSignature);
  PutU32(header.data() + 4, kChumpVersion);
  PutU32(header.data() + 12, static_cast<uint32_t>(Size()));
  return header;
}

bool ChunkWriter::WriteParts(const std::function<bool(std::string_view)>& put) const {
  if (!Fits() || !put(Header())) return false;
  const std::string_view all = Bytes();
  size_t done = 0;
  for (const Shared& shared : shared_) {
    if (!put(all.substr(done, shared.place - done)) || !put(RawBytes(shared.data))) return false;
    done = shared.place;
  }
  return put(all.substr(done));
}

bool ChunkWriter::WriteFile(TStream& stream) const {
  return WriteParts(
      [&](std::string_view part) { return stream.Write(part.data(), part.size()) == part.size(); });
}

std::string ChunkWriter::FileImage() const {
  std::string image;
  const bool whole = WriteParts([&](std::string_view part) {
    image += part;
    return true;
  });
  return whole ? image : std::string();
}

}  // namespace morvex
