#include "database/catalogue/index_reader.h"

#include <array>
#include <utility>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/index_format.h"
#include "database/catalogue/index_sections.h"
#include "database/catalogue/record_codec.h"
#include "engine/file.h"
#include "engine/read_file.h"
#include "tagdata/binary_file.h"
#include "tagdata/chunk_format.h"

namespace morvex {

// Reads the sections one after the other, each in place. Each answers false for what it refuses.
class IndexReader {
 public:
  IndexReader(ZEBAssetCache& cache, Nox::OwnedBytes file) : cache_(cache), in_(file.Span()) {
    cache_.file_ = std::move(file);
  }

  bool Read() {
    return Header() && Records() && Obsoletes() && Dependencies() && Authors() && Notes() && Archives() &&
           StationAndTail();
  }

 private:
  // How far ahead of its entry into the hash table a record is read, so that its place there is in reach.
  static constexpr uint32_t kAhead = 16;
  static constexpr size_t kSmallestRecord = KUID::kBinarySize + kAssetTextCount * 4 + kFixedSize;

  bool Header() {
    if (in_.U32() != kIndexMagic || in_.U32() != kIndexVersion) return false;
    if (in_.U32() != in_.Size()) return false;
    count_ = in_.U32();
    return !in_.Failed() && count_ <= in_.Remaining() / kSmallestRecord;
  }

  bool Records() {
    cache_.index_.Reserve(count_);
    for (uint32_t i = 0; i < count_; ++i) {
      ZEBAssetInfo& record = cache_.records.Append();
      if (!record.Adopt(in_)) return false;
      record.ordinal_ = i;
      record.kept_ = true;
      cache_.index_.Prefetch(record.kuid_);
      if (i >= kAhead && !Enter(i - kAhead)) return false;
    }
    for (uint32_t i = count_ > kAhead ? count_ - kAhead : 0; i < count_; ++i) {
      if (!Enter(i)) return false;
    }
    return true;
  }

  // False for a KUID that is there already.
  bool Enter(uint32_t ordinal) {
    const KUID& kuid = cache_.records[ordinal].kuid_;
    const auto kuidOf = [this](uint32_t at) { return cache_.records[at].kuid_; };
    if (cache_.index_.Find(kuid, kuidOf) != KuidIndex::kNone) return false;
    cache_.index_.Insert(kuid, ordinal);
    return true;
  }

  bool Obsoletes() {
    if (in_.U32() != kSectionVersion) return false;
    while (true) {
      const KUID newKuid = ReadIndexKuid(in_);
      if (in_.Failed()) return false;
      if (newKuid.IsNull()) return true;
      const KUID oldKuid = ReadIndexKuid(in_);
      if (!cache_.obsoletes.Set(oldKuid, newKuid)) return false;
    }
  }

  bool Dependencies() {
    if (in_.U32() != kSectionVersion) return false;
    const uint32_t count = in_.U32();
    if (count > in_.Remaining() / DependencyTable::kPairSize) return false;
    const auto pairs = in_.Bytes(count * DependencyTable::kPairSize);
    for (size_t at = 0; at < pairs.size(); at += KUID::kBinarySize) {
      if (IsNullKuidAt(pairs.data() + at)) return false;
    }
    cache_.dependencies.Adopt(pairs);
    return !in_.Failed();
  }

  bool Authors() {
    std::vector<AuthorTable::Entry> entries;
    if (!ReadAuthors(in_, entries)) return false;
    cache_.authors.SetEntries(std::move(entries));
    return true;
  }

  bool Notes() {
    Nox::ByteReader header = in_;
    const uint32_t signature = header.U32();
    header.Skip(8);
    const uint32_t bodySize = header.U32();
    if (header.Failed() || signature != kChumpSignature || bodySize > kMaxChumpBody) return false;
    const auto image = in_.Bytes(kChumpHeaderSize + size_t{bodySize});
    if (in_.Failed()) return false;
    const Raw view = ACSRawDataCore::ViewBytes(image.data(), static_cast<uint32_t>(image.size()), {});
    if (bodySize > 0 && !Nox::MakeRef<TDBBinaryFile>()->ReadImage(view)) return false;
    cache_.notes.Adopt(image);
    return true;
  }

  bool Archives() { return ReadArchives(in_, cache_.archives); }

  // The length of a station section of another version isn't known. The tail is the last words of the file, and
  // what stands in front of them is given up.
  bool StationAndTail() {
    const bool known = ReadStation(in_, cache_.station);
    if (in_.Failed() || in_.Remaining() < kIndexTailSize) return false;
    if (!known) in_.Skip(in_.Remaining() - kIndexTailSize);
    const uint32_t version = in_.U32();
    cache_.station.ticketState = in_.U32();
    cache_.station.ticketSeconds = in_.F32();
    return !in_.Failed() && version == kSectionVersion && in_.AtEnd();
  }

  ZEBAssetCache& cache_;
  Nox::ByteReader in_;
  uint32_t count_ = 0;
};

namespace {

// Looks at the header alone, so that no memory goes into a large file that is something else.
bool LooksLikeIndex(const std::string& path) {
  Nox::File file;
  std::array<uint8_t, kIndexHeaderSize> header{};
  if (!file.Open(path, Nox::OpenMode::kRead)) return false;
  if (file.Read(header.data(), header.size()) != header.size()) return false;
  Nox::ByteReader in(header);
  return in.U32() == kIndexMagic && in.U32() == kIndexVersion && in.U32() == file.Size();
}

}  // namespace

bool ReadIndex(const std::string& path, ZEBAssetCache& cache) {
  if (!LooksLikeIndex(path)) return false;
  auto file = Nox::ReadWholeFile(path);
  return file && IndexReader(cache, std::move(*file)).Read();
}

}  // namespace morvex
