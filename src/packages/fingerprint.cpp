#include "packages/fingerprint.h"

#include <unordered_map>
#include <vector>

#include "engine/byte_reader.h"
#include "engine/format.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

constexpr size_t kWord = sizeof(uint32_t);

void Accumulate(Fingerprint& sum, const Fingerprint& part) {
  sum.size += part.size;
  sum.hash += part.hash;
  if (sum.hash == 0) sum.hash = 1;
}

// A folder on the way down the tree.
struct Folder {
  TagContainer soup;
  uint32_t next = 0;
  Fingerprint sum = {};
  // Sums of the sub-folders so far: a second child of one name reads as the first.
  std::unordered_map<Nox::PString, Fingerprint> known = {};

  void Finish(const Fingerprint& subFolder) {
    known.emplace(soup.GetName(next - 1), subFolder);
    Accumulate(sum, subFolder);
  }
  bool TakeKnown(Nox::PString name) {
    const auto found = known.find(name);
    if (found != known.end()) Accumulate(sum, found->second);
    return found != known.end();
  }
};

}  // namespace

Fingerprint BlockFingerprint(std::span<const uint8_t> bytes) {
  if (bytes.size() <= kWord) return {};
  const auto size = static_cast<uint32_t>(bytes.size() / kWord * kWord);
  uint32_t hash = 0;
  Nox::ByteReader words(bytes.first(size));
  while (!words.AtEnd()) {
    hash += words.U32();
    hash = (hash << 1) | (hash >> 30);  // 30, not 31: no rotation, but what all packages were made with
  }
  return {hash == 0 ? 1 : hash, size};
}

Fingerprint FilesFingerprint(const TagContainer& files) {
  std::vector<Folder> path;
  path.push_back({files});
  for (;;) {
    Folder& folder = path.back();
    if (folder.next == folder.soup.GetCount()) {
      const Fingerprint done = folder.sum;
      path.pop_back();
      if (path.empty()) return done;
      path.back().Finish(done);
      continue;
    }
    const Nox::PString name = folder.soup.GetName(folder.next++);
    const ChunkKind kind = folder.soup.GetKind(name);
    if (kind == ChunkKind::kBinary) {
      const Raw raw = folder.soup.GetRaw(name);
      Accumulate(folder.sum, BlockFingerprint({RawData(raw), RawSize(raw)}));
    } else if (kind == ChunkKind::kContainer) {
      if (!folder.TakeKnown(name)) path.push_back({folder.soup.GetContainer(name)});
    }
  }
}

std::string DsidText(const TagContainer& files) {
  const Fingerprint sum = FilesFingerprint(files);
  return Nox::FormatText("%d:%d", static_cast<int32_t>(sum.size), static_cast<int32_t>(sum.hash));
}

}  // namespace morvex
