#pragma once

#include <ostream>
#include <string>

#include "host/report_data.h"

namespace morvex::host {

struct ReportHead {
  std::string title;
  std::string subtitle;
};

// Writes a report as one HTML page that needs nothing else: the pictures, the style and the script stand in it. Texts
// of assets can't become markup.
void WriteReportPage(std::ostream& out, const ReportHead& head, const ReportData& data);

}  // namespace morvex::host
