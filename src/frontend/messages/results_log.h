#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

#include "engine/format.h"
#include "frontend/messages/message_recipient.h"
#include "tagdata/property_ptr.h"

namespace morvex {

enum class Severity : uint32_t { kInformation = 1, kWarning = 2, kError = 3, kNote = 4 };

// What an operation has to tell the user: entries of a severity, a text, and the asset concerned. The caller
// of an operation owns the log and passes it in. Any thread may add; the lock is the log's own.
class ResultsLog : public NuMessageRecipient {
 public:
  struct Entry {
    Severity severity;
    std::string text;
    MorvexPropertyPtr subject;  // may be null
  };

  ResultsLog() = default;
  // Copies the entries and their counts, and no links.
  ResultsLog(const ResultsLog& other);
  ResultsLog& operator=(const ResultsLog& other);
  ~ResultsLog() override;

  // Adds an entry whose text is `format` with its placeholders filled, as engine/format.h says; `number` is
  // carried by the callers and not shown. The caller mustn't share `subject` with another thread.
  template <typename... Args>
  void Add(Severity severity, const MorvexPropertyPtr& subject, std::string_view format, int /*number*/,
           const Args&... args) {
    AddText(severity, subject, Nox::FormatText(format, args...));
  }

  size_t WarningCount() const;
  size_t ErrorCount() const;
  size_t NoteCount() const;
  // True until something is added, and again once it was printed.
  bool IsUnchanged() const;

  // Calls `visit` with each entry in order, under the lock; it may add to this log, unseen by this walk.
  void ForEach(const std::function<void(const Entry&)>& visit) const;

  // The printed form: a line for each entry and one with the counts. Counts as a print.
  std::string TakePrintedForm();

  // For those who watch the log; nothing happens here.
  virtual int HandleListUpdated(std::string_view message);

 private:
  // A copy made under the other's lock, for the constructor and the assignment.
  struct Content {
    std::deque<Entry> entries;  // stays where it is while more are added
    size_t warnings = 0;
    size_t errors = 0;
    size_t notes = 0;
    bool unchanged = true;
  };

  void AddText(Severity severity, const MorvexPropertyPtr& subject, std::string text);
  Content CopyContent() const;

  mutable std::recursive_mutex lock_;
  Content content_;
};

// Writes the printed form to standard output. The log keeps its entries: a later print repeats them.
void PrintResults(ResultsLog& log);

}  // namespace morvex
