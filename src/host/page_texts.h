#pragma once

#include <string_view>

namespace morvex::host {

// The files of the folder "page" that the build puts into the program.
extern const std::string_view kReportHtml;
extern const std::string_view kReportStyle;
extern const std::string_view kReportScript;

}  // namespace morvex::host
