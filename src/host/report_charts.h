#pragma once

#include <string>

#include "host/report_data.h"

namespace morvex::host {

// The parts of a report's page above the table, as HTML: the main numbers, and the charts of classes, authors and
// sizes. What is clicked there filters the table.
std::string ReportTiles(const ReportData& data);
std::string ReportCharts(const ReportData& data);

}  // namespace morvex::host
