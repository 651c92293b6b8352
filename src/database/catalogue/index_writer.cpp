#include "database/catalogue/index_writer.h"

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/index_format.h"
#include "database/catalogue/index_sections.h"
#include "database/catalogue/index_sink.h"
#include "engine/byte_writer.h"

namespace morvex {
namespace {

using Writer = Nox::ByteWriter<std::string>;

constexpr uint64_t kMaxIndexSize = 0xFFFFFFFF;

void WriteHeader(const ZEBAssetCache& cache, IndexSink& out) {
  std::string header;
  Writer writer(header);
  writer.U32(kIndexMagic);
  writer.U32(kIndexVersion);
  writer.U32(kIndexSizePlaceholder);
  writer.U32(static_cast<uint32_t>(cache.Count()));
  out.Copy(header);
}

void WriteRecords(const ZEBAssetCache& cache, IndexSink& out) {
  ZEBAssetInfo::Encoded record;
  for (size_t i = 0; i < cache.records.Places(); ++i) {
    if (!cache.records[i].EncodeTo(record)) continue;
    if (!record.fixedIsNew) {
      out.Stretch(record.bytes);
      continue;
    }
    out.Stretch(record.bytes.first(record.fixedAt));
    out.Copy(record.fixed);
    out.Stretch(record.bytes.subspan(record.fixedAt + record.fixed.size()));
  }
}

void WriteObsoletes(const ZEBObsoleteMap& obsoletes, IndexSink& out) {
  std::string section;
  Writer(section).U32(kSectionVersion);
  obsoletes.ForEach([&](const ZEBObsoleteMap::Pair& pair) {
    AppendIndexKuid(section, pair.newKuid);
    AppendIndexKuid(section, pair.oldKuid);
  });
  AppendIndexKuid(section, KUID());
  out.Copy(section);
}

void WriteDependencies(const DependencyTable& dependencies, IndexSink& out) {
  std::string section;
  Writer(section).U32(kSectionVersion);
  Writer(section).U32(static_cast<uint32_t>(dependencies.Count()));
  dependencies.ForEach([&](const KUID& asset, const KUID& dependency) {
    AppendIndexKuid(section, asset);
    AppendIndexKuid(section, dependency);
  });
  out.Copy(section);
  if (dependencies.IsUnchanged()) out.Stretch(dependencies.Adopted());
}

void WriteNotes(const AssetNotes& notes, IndexSink& out) {
  if (notes.IsUnchanged()) {
    out.Stretch(notes.Adopted());
  } else {
    out.Copy(notes.Image());
  }
}

void WriteSmallSections(const ZEBAssetCache& cache, IndexSink& out) {
  std::string sections;
  WriteArchives(cache.archives, sections);
  WriteStation(cache.station, sections);
  WriteTail(cache.station, sections);
  out.Copy(sections);
}

bool PatchSize(Nox::File& file, uint64_t size) {
  if (size > kMaxIndexSize || !file.Seek(kIndexSizeAt)) return false;
  std::string bytes;
  Writer(bytes).U32(static_cast<uint32_t>(size));
  return file.Write(bytes.data(), bytes.size()) == bytes.size();
}

}  // namespace

bool WriteIndex(const std::string& path, const ZEBAssetCache& cache) {
  Nox::File file;
  if (!file.Open(path, Nox::OpenMode::kCreate)) return false;
  IndexSink out(file);
  WriteHeader(cache, out);
  WriteRecords(cache, out);
  WriteObsoletes(cache.obsoletes, out);
  WriteDependencies(cache.dependencies, out);
  std::string authors;
  WriteAuthors(cache.authors, authors);
  out.Copy(authors);
  WriteNotes(cache.notes, out);
  WriteSmallSections(cache, out);
  return out.Finish() && PatchSize(file, out.Size()) && file.Sync() && file.Close();
}

}  // namespace morvex
