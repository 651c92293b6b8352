#pragma once

#include <string_view>

namespace morvex {

class ResultsLog;
struct WalkEntry;
enum class CodingFailure;

// The words about an asset's files, in the language of the interface texts and without a subject.

// Which operation speaks: the one that takes files along sees a file of another type as less grave, and names it
// by its path.
enum class FileReporter { kPacking, kCheck };

// About an entry that isn't a file or folder to be taken.
void ReportEntry(ResultsLog& log, const WalkEntry& entry, FileReporter reporter);

// About a file that couldn't be coded.
void ReportCoding(ResultsLog& log, CodingFailure failure, std::string_view path,
                  std::string_view compression);

void ReportUnreadableFile(ResultsLog& log, std::string_view path);
void ReportBadName(ResultsLog& log, std::string_view name);

}  // namespace morvex
