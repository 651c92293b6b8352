#pragma once

#include <string>
#include <vector>

#include "database/catalogue/archive_list.h"
#include "database/catalogue/author_table.h"
#include "database/catalogue/download_station.h"
#include "engine/byte_reader.h"

namespace morvex {

// The small sections of the index file (see index_format.h). A reader answers false for what it refuses, and
// checks counts before it takes memory.

[[nodiscard]] bool ReadAuthors(Nox::ByteReader& in, std::vector<AuthorTable::Entry>& entries);
void WriteAuthors(const AuthorTable& authors, std::string& out);

[[nodiscard]] bool ReadArchives(Nox::ByteReader& in, ZEBArchiveList& archives);
void WriteArchives(const ZEBArchiveList& archives, std::string& out);

// False, with the reader behind the first word, for a section of another version.
bool ReadStation(Nox::ByteReader& in, DownloadStationState& station);
void WriteStation(const DownloadStationState& station, std::string& out);
void WriteTail(const DownloadStationState& station, std::string& out);

void AppendIndexString(std::string& out, std::string_view text);
void AppendIndexKuid(std::string& out, const KUID& kuid);

}  // namespace morvex
