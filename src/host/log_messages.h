#pragma once

namespace morvex {
class ResultsLog;
}

namespace morvex::host {

class Console;

// Tells on standard error what an operation had to say, and about which asset.
void PrintLog(const Console& console, const ResultsLog& log);

}  // namespace morvex::host
