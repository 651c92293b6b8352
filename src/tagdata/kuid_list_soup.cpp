#include <string>
#include <vector>

#include "tagdata/kuid_list.h"
#include "tagdata/repeat_guard.h"
#include "tagdata/tag_container.h"

namespace morvex {

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

// Nested soups are walked on a stack of their own: how deep they go is up to the file. Of soups with one name only
// the first can be reached, and once is enough.
void KUIDList::ScanContainer(const TagContainer& container) {
  struct Level {
    TagContainer soup;
    uint32_t index = 0;
    MetNames met = {};
  };
  std::vector<Level> open;
  open.push_back({container});
  while (!open.empty()) {
    auto& [soup, index, met] = open.back();
    if (index == soup.GetCount()) {
      open.pop_back();
      continue;
    }
    const Nox::PString name = soup.GetName(index++);
    switch (soup.GetKind(name)) {
      case ChunkKind::kString:
      case ChunkKind::kText:
        AddIfValid(KUID(soup.GetText(name), true));
        break;
      case ChunkKind::kKuid:
        AddIfValid(soup.GetKUID(name));
        break;
      case ChunkKind::kContainer:
        if (met.Add(name)) open.push_back({soup.GetContainer(name)});
        break;
      default:
        break;
    }
  }
}

}  // namespace morvex
