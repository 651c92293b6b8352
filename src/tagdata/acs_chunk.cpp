#include "tagdata/acs_chunk.h"

#include <utility>
#include <vector>

#include "tagdata/data_tag.h"
#include "tagdata/soup_walk.h"

namespace morvex {
namespace {

// Below this size a copy of the bytes is smaller than a share in them.
constexpr uint32_t kShareFrom = 128;

ChunkRef CopyOfLeaf(const ACSChunk& leaf, ACSChunk& soup) {
  if (leaf.GetDataSize() >= kShareFrom) return soup.CreateChunk(leaf.GetKind(), leaf.GetRawData());
  return TDBDataTag::Make(leaf.GetKind(), leaf.GetData(), leaf.GetDataSize());
}

void RemoveChildren(ACSChunk& soup) {
  for (uint32_t count = soup.GetChildCount(); count > 0; --count)
    soup.RemoveNamed(soup.GetChildName(count - 1));
}

}  // namespace

ACSChunk::~ACSChunk() = default;

const ChunkRef& NullChunk() {
  // Never deleted: handles in static objects may outlive any order of destruction.
  static const ChunkRef& chunk = *new ChunkRef(new ACSChunk);
  return chunk;
}

ChunkRef ACSChunk::GetChunk(const Nox::PString&) const {
  return NullChunk();
}
ChunkRef ACSChunk::GetChunk(const Nox::PString&) {
  return NullChunk();
}
uint32_t ACSChunk::GetChildCount() const {
  return 0;
}
Nox::PString ACSChunk::GetChildName(uint32_t) const {
  return Nox::PString();
}
void ACSChunk::Sort() {}
void ACSChunk::SwapChildren(const ACSChunk*, const ACSChunk*) {}
void ACSChunk::AddChild(const Nox::PString&, ChunkRef) {}
void ACSChunk::RemoveChild(const ACSChunk*) {}
ChunkRef ACSChunk::CreateChunk(ChunkKind, const Raw&) {
  return NullChunk();
}
const uint8_t* ACSChunk::GetData() const {
  return nullptr;
}
uint32_t ACSChunk::GetDataSize() const {
  return 0;
}
ChunkKind ACSChunk::GetKind() const {
  return ChunkKind::kNull;
}
void ACSChunk::SetData(ChunkKind, const Raw&) {}

void ACSChunk::RemoveNamed(const Nox::PString& name) {
  RemoveChild(GetChunk(name).Get());
}

void ACSChunk::SetChild(const Nox::PString& name, ChunkRef chunk) {
  RemoveNamed(name);
  AddChild(name, std::move(chunk));
}

Raw ACSChunk::GetRawData() const {
  return ShareData();
}

Raw ACSChunk::ShareData() const {
  return ACSRawDataCore::ViewBytes(GetData(), GetDataSize(),
                                   Nox::Ref<Nox::ReferenceCountMP>(const_cast<ACSChunk*>(this)));
}

std::string_view ACSChunk::DataText() const {
  const std::string_view bytes(reinterpret_cast<const char*>(GetData()), GetDataSize());
  return bytes.substr(0, bytes.find('\0'));
}

void ACSChunk::CopyFrom(const ACSChunk& source) {
  if (&source == this) return;
  if (source.GetKind() != ChunkKind::kNull) SetData(source.GetKind(), source.GetRawData());
  RemoveChildren(*this);

  std::vector<Nox::Ref<ACSChunk>> targets{Nox::Ref<ACSChunk>(this)};
  SoupWalk walk(source);
  while (walk.Next()) {
    switch (walk.What()) {
      case SoupWalk::Event::kLeaf:
        targets.back()->AddChild(walk.Name(), CopyOfLeaf(*walk.Chunk(), *targets.back()));
        break;
      case SoupWalk::Event::kEnter: {
        ChunkRef copy = targets.back()->CreateChunk(ChunkKind::kContainer, Raw());
        targets.back()->AddChild(walk.Name(), copy);
        targets.push_back(std::move(copy));
        break;
      }
      case SoupWalk::Event::kLeave:
        targets.pop_back();
    }
  }
}

}  // namespace morvex
