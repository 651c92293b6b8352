#include "host/log_messages.h"

#include "frontend/messages/results_log.h"
#include "host/console.h"

namespace morvex::host {

void PrintLog(const Console& console, const ResultsLog& log) {
  log.ForEach([&](const ResultsLog::Entry& entry) {
    if (entry.severity == Severity::kError) {
      console.Error(entry.text);
    } else {
      console.Note(entry.severity == Severity::kWarning ? "warning: " + entry.text : entry.text);
    }
  });
}

}  // namespace morvex::host
