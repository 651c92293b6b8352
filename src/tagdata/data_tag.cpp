#include "tagdata/data_tag.h"

#include <cstring>
#include <limits>
#include <new>

namespace morvex {

void* TDBDataTag::operator new(size_t size, Behind behind) {
  return ::operator new(size + behind.bytes);
}
void TDBDataTag::operator delete(void* block, Behind) {
  ::operator delete(block);
}
void TDBDataTag::operator delete(void* block) {
  ::operator delete(block);
}

ChunkRef TDBDataTag::Make() {
  return ChunkRef(new (Behind{0}) TDBDataTag(ChunkKind::kNull, 0));
}

ChunkRef TDBDataTag::Make(ChunkKind kind, const void* bytes, uint32_t size) {
  auto* tag = new (Behind{size}) TDBDataTag(kind, size);
  if (size != 0) std::memcpy(tag->InlineBytes(), bytes, size);
  return ChunkRef(tag);
}

ChunkRef TDBDataTag::MakeString(std::string_view text) {
  if (text.empty() || text.size() >= std::numeric_limits<uint32_t>::max()) {
    return Make(ChunkKind::kString, nullptr, 0);
  }
  const auto size = static_cast<uint32_t>(text.size() + 1);
  auto* tag = new (Behind{size}) TDBDataTag(ChunkKind::kString, size);
  std::memcpy(tag->InlineBytes(), text.data(), text.size());
  tag->InlineBytes()[text.size()] = 0;
  return ChunkRef(tag);
}

ChunkRef TDBDataTag::MakeShared(ChunkKind kind, const Raw& data) {
  ChunkRef tag = Make();
  tag->SetData(kind, data);
  return tag;
}

const uint8_t* TDBDataTag::GetData() const {
  return size_ != 0 ? InlineBytes() : RawData(data_);
}

uint32_t TDBDataTag::GetDataSize() const {
  return size_ != 0 ? size_ : RawSize(data_);
}

// The bytes behind the tag stay where they are: views of them may be about.
void TDBDataTag::SetData(ChunkKind kind, const Raw& data) {
  kind_ = kind;
  size_ = 0;
  data_ = data;
}

Raw TDBDataTag::ShareData() const {
  return size_ != 0 ? ACSChunk::ShareData() : data_;
}

}  // namespace morvex
