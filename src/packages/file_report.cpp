#include "packages/file_report.h"

#include "frontend/messages/interface_text.h"
#include "frontend/messages/results_log.h"
#include "packages/asset_walk.h"
#include "packages/file_coding.h"

namespace morvex {
namespace {

template <typename... Args>
void Report(ResultsLog& log, Severity severity, std::string_view key, const Args&... args) {
  log.Add(severity, MorvexPropertyPtr(), GetInterfaceString(key), 0, args...);
}

}  // namespace

void ReportUnreadableFile(ResultsLog& log, std::string_view path) {
  Report(log, Severity::kError, "$zeb_package_file_read_err", path);
}

void ReportBadName(ResultsLog& log, std::string_view name) {
  Report(log, Severity::kError, "$zeb_package_file_bad_name", name);
}

void ReportEntry(ResultsLog& log, const WalkEntry& entry, FileReporter reporter) {
  const bool packing = reporter == FileReporter::kPacking;
  switch (entry.finding) {
    case WalkFinding::kBadName:
      return ReportBadName(log, entry.name);
    case WalkFinding::kBadExtension:
      return Report(log, packing ? Severity::kWarning : Severity::kError, "$zeb_package_file_bad_ext",
                    packing ? entry.path : entry.name);
    case WalkFinding::kUnlistedFolder:
      return Report(log, Severity::kError,
                    packing ? "$zeb_package_folder_read_err" : "$zeb_package_folder_err", entry.path);
    case WalkFinding::kUnreadableFile:
      return ReportUnreadableFile(log, entry.path);
    case WalkFinding::kFile:
    case WalkFinding::kFolder:
    case WalkFinding::kFolderEnd:
      return;
  }
}

void ReportCoding(ResultsLog& log, CodingFailure failure, std::string_view path,
                  std::string_view compression) {
  switch (failure) {
    case CodingFailure::kTooLarge:
      return Report(log, Severity::kError, "$zeb_package_file_too_large", path);
    case CodingFailure::kUnknownCompression:
      return Report(log, Severity::kError, "$zeb_package_unknown_compression", path, compression);
    case CodingFailure::kUnreadable:
    case CodingFailure::kDamaged:
      return ReportUnreadableFile(log, path);
    case CodingFailure::kNone:
      return;
  }
}

}  // namespace morvex
