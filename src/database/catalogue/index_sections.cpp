#include "database/catalogue/index_sections.h"

#include <algorithm>

#include "database/catalogue/index_format.h"
#include "database/catalogue/record_codec.h"
#include "engine/byte_writer.h"
#include "engine/time.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

using Writer = Nox::ByteWriter<std::string>;

bool IsStored(const std::unique_ptr<ZEBArchive>& archive) {
  return archive->number != 0;
}

bool ReadArchive(Nox::ByteReader& in, ZEBArchive& archive) {
  if (in.U32() != kArchiveEntryVersion) return in.Fail();
  archive.mounted = in.U8() != 0;
  archive.number = in.U32();
  archive.path = ReadIndexString(in);
  archive.name = ReadIndexString(in);
  archive.serial = in.U32();
  const uint32_t count = in.U32();
  if (count > in.Remaining() / KUID::kBinarySize) return in.Fail();
  for (uint32_t i = 0; i < count; ++i)
    archive.kuids.AddIfValid(ReadIndexKuid(in));
  return in.U32() == kArchiveEndMark || in.Fail();
}

void WriteArchive(const ZEBArchive& archive, std::string& out) {
  Writer writer(out);
  writer.U32(kArchiveEntryVersion);
  writer.U8(archive.mounted || archive.scanning ? 1 : 0);
  writer.U32(archive.number);
  AppendIndexString(out, archive.path);
  AppendIndexString(out, archive.name);
  writer.U32(archive.serial);
  writer.U32(static_cast<uint32_t>(archive.kuids.Count()));
  for (const KUID& kuid : archive.kuids)
    AppendIndexKuid(out, kuid);
  writer.U32(kArchiveEndMark);
}

}  // namespace

void AppendIndexString(std::string& out, std::string_view text) {
  const size_t at = out.size();
  out.resize(at + IndexStringSize(text));
  PutIndexString(reinterpret_cast<uint8_t*>(out.data() + at), text);
}

void AppendIndexKuid(std::string& out, const KUID& kuid) {
  const size_t at = out.size();
  out.resize(at + KUID::kBinarySize);
  PutIndexKuid(reinterpret_cast<uint8_t*>(out.data() + at), kuid);
}

bool ReadAuthors(Nox::ByteReader& in, std::vector<AuthorTable::Entry>& entries) {
  constexpr size_t kSmallest = 12;
  constexpr uint32_t kNoUser = 0xFFFFFFFF;
  if (in.U32() != kSectionVersion) return in.Fail();
  const uint32_t count = in.U32();
  if (count > in.Remaining() / kSmallest) return in.Fail();
  entries.reserve(count);
  for (uint32_t i = 0; i < count; ++i) {
    const Nox::PString name(ReadIndexString(in));
    const uint32_t profile = in.U32();
    const uint32_t user = in.U32();
    if (in.Failed() || profile == AuthorTable::kNoProfile) return in.Fail();
    if (name.Empty() && user == kNoUser) return in.Fail();
    entries.push_back({name, profile, user});
  }
  return !in.Failed();
}

void WriteAuthors(const AuthorTable& authors, std::string& out) {
  Writer writer(out);
  writer.U32(kSectionVersion);
  writer.U32(static_cast<uint32_t>(authors.Entries().size()));
  for (const AuthorTable::Entry& entry : authors.Entries()) {
    AppendIndexString(out, entry.name.View());
    writer.U32(entry.profileId);
    writer.U32(entry.userId);
  }
}

bool ReadArchives(Nox::ByteReader& in, ZEBArchiveList& archives) {
  if (in.U32() != kSectionVersion) return in.Fail();
  for (uint32_t left = in.U32(); left > 0; --left) {
    ZEBArchive archive;
    if (!ReadArchive(in, archive)) return false;
    archives.Append(std::move(archive));
  }
  return !in.Failed();
}

void WriteArchives(const ZEBArchiveList& archives, std::string& out) {
  Writer writer(out);
  const auto& all = archives.Archives();
  writer.U32(kSectionVersion);
  writer.U32(static_cast<uint32_t>(std::count_if(all.begin(), all.end(), IsStored)));
  for (const auto& archive : all) {
    if (IsStored(archive)) WriteArchive(*archive, out);
  }
}

bool ReadStation(Nox::ByteReader& in, DownloadStationState& station) {
  const uint32_t version = in.U32();
  if (version != kStationVersion) {
    MorvexLog::Message("ZEBDownloadStation::Read> unknown file format version %d", version);
    return false;
  }
  station.lastReceivedFile = ReadIndexString(in);
  station.lastUpdateTime = in.U64();
  const uint32_t count = in.U32();
  if (count > in.Remaining() / 4) return in.Fail();
  if (station.lastUpdateTime > Nox::TimeStamp()) {
    MorvexLog::Message("ZEBDownloadStation::Read> future-dated timestamp, resetting");
    station.lastUpdateTime = 0;
  }
  MorvexLog::Message("ZEBDownloadStation::Read> queued urls: %d", count);
  for (uint32_t i = 0; i < count; ++i) {
    station.queuedUrls.emplace_back(ReadIndexString(in));
    MorvexLog::Message("ZEBDownloadStation::Read> queued url: %s", station.queuedUrls.back());
  }
  return !in.Failed();
}

void WriteStation(const DownloadStationState& station, std::string& out) {
  Writer writer(out);
  MorvexLog::Message("ZEBDownloadStation::Write> %d", station.queuedUrls.size());
  writer.U32(kStationVersion);
  AppendIndexString(out, station.lastReceivedFile);
  writer.U64(station.lastUpdateTime);
  writer.U32(static_cast<uint32_t>(station.queuedUrls.size()));
  for (const std::string& url : station.queuedUrls)
    AppendIndexString(out, url);
}

void WriteTail(const DownloadStationState& station, std::string& out) {
  Writer writer(out);
  writer.U32(kSectionVersion);
  writer.U32(station.ticketState);
  writer.F32(station.ticketSeconds);
}

}  // namespace morvex
