#include "tagdata/tag_container.h"

#include <bit>
#include <cstring>
#include <utility>

#include "engine/byte_reader.h"
#include "tagdata/container_tag.h"
#include "tagdata/data_tag.h"
#include "tagdata/morvex_log.h"
#include "tagdata/tag_value.h"

namespace morvex {
namespace {

constexpr size_t kWordSize = 4;

uint32_t Word(std::string_view bytes) {
  return Nox::ByteReader(bytes).U32();
}

ChunkRef NewContainer() {
  return ChunkRef(new TDBContainerTag);
}

}  // namespace

ChunkRef TagContainer::Find(const Nox::PString& name) const {
  if (!chunk_) return ChunkRef();
  ChunkRef tag = std::as_const(*chunk_).GetChunk(name);
  return tag->GetKind() == ChunkKind::kNull ? ChunkRef() : tag;
}

Nox::PString TagContainer::GetString(const Nox::PString& name) const {
  const ChunkRef tag = Find(name);
  return tag ? Nox::PString(TagValue(*tag, ChunkKind::kString).Text()) : Nox::PString();
}

std::string TagContainer::GetText(const Nox::PString& name) const {
  const ChunkRef tag = Find(name);
  return tag ? std::string(TagValue(*tag, ChunkKind::kString).Text()) : std::string();
}

int32_t TagContainer::GetInt(const Nox::PString& name, int32_t otherwise) const {
  const ChunkRef tag = Find(name);
  if (!tag) return otherwise;
  const TagValue value(*tag, ChunkKind::kInt);
  return value.Bytes().size() == kWordSize ? static_cast<int32_t>(Word(value.Bytes())) : otherwise;
}

bool TagContainer::GetBool(const Nox::PString& name, bool otherwise) const {
  return GetInt(name, otherwise ? 1 : 0) != 0;
}

float TagContainer::GetFloat(const Nox::PString& name, float otherwise) const {
  const ChunkRef tag = Find(name);
  if (!tag) return otherwise;
  const TagValue value(*tag, ChunkKind::kFloat);
  return value.Bytes().size() == kWordSize ? std::bit_cast<float>(Word(value.Bytes())) : otherwise;
}

bool TagContainer::GetFloatArray(const Nox::PString& name, std::vector<float>& out) const {
  out.clear();
  const ChunkRef tag = Find(name);
  if (!tag) return false;
  const TagValue value(*tag, ChunkKind::kFloat);
  Nox::ByteReader in(value.Bytes());
  while (in.Remaining() >= kWordSize)
    out.push_back(in.F32());
  return !out.empty();
}

KUID TagContainer::GetKUID(const Nox::PString& name, const KUID& otherwise) const {
  const ChunkRef tag = Find(name);
  if (!tag) return otherwise;
  const TagValue value(*tag, ChunkKind::kKuid);
  KUID::Bytes bytes;
  if (value.Bytes().size() != bytes.size()) return otherwise;
  std::memcpy(bytes.data(), value.Bytes().data(), bytes.size());
  return KUID::FromChunkData(bytes);
}

Raw TagContainer::GetRaw(const Nox::PString& name) const {
  const ChunkRef tag = Find(name);
  return tag ? tag->GetRawData() : Raw();
}

ChunkKind TagContainer::GetKind(const Nox::PString& name) const {
  const ChunkRef tag = Find(name);
  return tag ? tag->GetKind() : ChunkKind::kNull;
}

bool TagContainer::HasTag(const Nox::PString& name) const {
  return static_cast<bool>(Find(name));
}

TagContainer TagContainer::GetContainer(const Nox::PString& name) const {
  ChunkRef tag = Find(name);
  if (!tag || tag->GetKind() != ChunkKind::kContainer) return TagContainer();
  return TagContainer(std::move(tag));
}

TagContainer TagContainer::GetContainerAt(uint32_t index) const {
  return GetContainer(GetName(index));
}

uint32_t TagContainer::GetCount() const {
  return chunk_ ? chunk_->GetChildCount() : 0;
}

Nox::PString TagContainer::GetName(uint32_t index) const {
  return chunk_ ? chunk_->GetChildName(index) : Nox::PString();
}

bool TagContainer::IsValid() const {
  return chunk_ && chunk_->GetKind() != ChunkKind::kNull;
}

const ChunkRef& TagContainer::GetRoot() {
  if (!chunk_) chunk_ = NewContainer();
  return chunk_;
}

void TagContainer::Set(const Nox::PString& name, ChunkRef chunk) {
  if (!chunk_ || chunk_->GetKind() != ChunkKind::kContainer) chunk_ = NewContainer();
  chunk_->SetChild(name, std::move(chunk));
}

void TagContainer::SetString(const Nox::PString& name, std::string_view value) {
  Set(name, TDBDataTag::MakeString(value));
}

void TagContainer::SetInt(const Nox::PString& name, int32_t value) {
  Set(name, TDBDataTag::Make(ChunkKind::kInt, &value, sizeof value));
}

void TagContainer::SetBool(const Nox::PString& name, bool value) {
  SetInt(name, value ? 1 : 0);
}

void TagContainer::SetFloat(const Nox::PString& name, float value) {
  Set(name, TDBDataTag::Make(ChunkKind::kFloat, &value, sizeof value));
}

void TagContainer::SetFloatArray(const Nox::PString& name, const std::vector<float>& values) {
  const auto size = static_cast<uint32_t>(values.size() * sizeof(float));
  Set(name, size == 0 ? ChunkRef() : TDBDataTag::Make(ChunkKind::kFloat, values.data(), size));
}

void TagContainer::SetKUID(const Nox::PString& name, const KUID& value) {
  const KUID::Bytes bytes = value.ToChunkData();
  Set(name, TDBDataTag::Make(ChunkKind::kKuid, bytes.data(), static_cast<uint32_t>(bytes.size())));
}

void TagContainer::SetRaw(const Nox::PString& name, const Raw& data) {
  Set(name, TDBDataTag::MakeShared(ChunkKind::kBinary, data));
}

void TagContainer::SetNull(const Nox::PString& name) {
  Set(name, TDBDataTag::Make());
}

void TagContainer::SetContainer(const Nox::PString& name, TagContainer& container) {
  Set(name, container.GetRoot());
}

void TagContainer::SetContainer(const Nox::PString& name, TagContainer&& container) {
  Set(name, container.GetRoot());
  container.Clear();
}

void TagContainer::Remove(const Nox::PString& name) {
  if (chunk_) chunk_->RemoveNamed(name);
}

void TagContainer::RemoveChunk(const ACSChunk* chunk) {
  if (chunk_) chunk_->RemoveChild(chunk);
}

void TagContainer::CopyFrom(const TagContainer& other) {
  ChunkRef copy = NewContainer();
  if (other.GetCount() != 0) copy->CopyFrom(*other.chunk_);
  chunk_ = std::move(copy);
}

void TagContainer::DebugPrint() const {
  for (uint32_t i = 0; i < GetCount(); ++i) {
    const Nox::PString name = GetName(i);
    MorvexLog::Message("TagContainer::DebugPrint> %s %s", name, GetString(name));
  }
}

}  // namespace morvex
