#include <cstring>
#include <string>

#include "tagdata/kuid_list.h"
#include "tagdata/soup_walk.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

// The null KUID if the data has another size.
KUID TagKuid(const ACSChunk& tag) {
  KUID::Bytes bytes;
  if (tag.GetDataSize() != bytes.size()) return KUID();
  std::memcpy(bytes.data(), tag.GetData(), bytes.size());
  return KUID::FromChunkData(bytes);
}

}  // namespace

TagContainer KUIDList::ToContainer() const {
  TagContainer container;
  container.GetRoot();
  int number = 0;
  for (const KUID& kuid : *this) {
    if (!kuid.IsNull()) container.SetKUID(Nox::PString(std::to_string(number++)), kuid);
  }
  return container;
}

void KUIDList::FromContainer(const TagContainer& container) {
  const uint32_t count = container.GetCount();
  for (uint32_t i = 0; i < count; ++i)
    AddIfValid(container.GetKUID(container.GetName(i)));
}

void KUIDList::ScanContainer(const TagContainer& container) {
  if (container.Chunk() == nullptr) return;
  SoupWalk walk(*container.Chunk());
  while (walk.Next()) {
    if (walk.What() != SoupWalk::Event::kLeaf) continue;
    const ACSChunk& tag = *walk.Chunk();
    switch (tag.GetKind()) {
      case ChunkKind::kString:
      case ChunkKind::kText:
        AddIfValid(KUID(tag.DataText(), true));
        break;
      case ChunkKind::kKuid:
        AddIfValid(TagKuid(tag));
        break;
      default:
        break;
    }
  }
}

}  // namespace morvex
