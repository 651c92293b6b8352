#include "frontend/messages/results_log.h"

#include <cstdio>

#include "tagdata/kuid.h"

namespace morvex {
namespace {

std::string_view Prefix(Severity severity) {
  switch (severity) {
    case Severity::kInformation:
      return "; ";
    case Severity::kWarning:
      return "! ";
    case Severity::kError:
      return "- ";
    case Severity::kNote:
      return "+ ";
  }
  return "";
}

// A subject of any kind is shown as the KUID that its text reads as.
std::string SubjectText(const MorvexPropertyPtr& subject) {
  std::string text;
  subject.GetValue(text);
  return KUID(text, false).TagText();
}

}  // namespace

ResultsLog::ResultsLog(const ResultsLog& other) : NuMessageRecipient(), content_(other.CopyContent()) {}

ResultsLog& ResultsLog::operator=(const ResultsLog& other) {
  Content copy = other.CopyContent();
  const std::lock_guard guard(lock_);
  std::swap(content_, copy);
  return *this;
}

ResultsLog::~ResultsLog() {
  UnlinkAll();
}

void ResultsLog::AddText(Severity severity, const MorvexPropertyPtr& subject, std::string text) {
  {
    const std::lock_guard guard(lock_);
    content_.entries.push_back({severity, std::move(text), subject});
    if (severity == Severity::kWarning) ++content_.warnings;
    if (severity == Severity::kError) ++content_.errors;
    if (severity == Severity::kNote) ++content_.notes;
    content_.unchanged = false;
  }
  ForwardMessage("list-updated");
}

size_t ResultsLog::WarningCount() const {
  const std::lock_guard guard(lock_);
  return content_.warnings;
}

size_t ResultsLog::ErrorCount() const {
  const std::lock_guard guard(lock_);
  return content_.errors;
}

size_t ResultsLog::NoteCount() const {
  const std::lock_guard guard(lock_);
  return content_.notes;
}

bool ResultsLog::IsUnchanged() const {
  const std::lock_guard guard(lock_);
  return content_.unchanged;
}

ResultsLog::Content ResultsLog::CopyContent() const {
  const std::lock_guard guard(lock_);
  return content_;
}

void ResultsLog::ForEach(const std::function<void(const Entry&)>& visit) const {
  const std::lock_guard guard(lock_);
  const size_t count = content_.entries.size();
  for (size_t i = 0; i < count; ++i)
    visit(content_.entries[i]);
}

std::string ResultsLog::TakePrintedForm() {
  const std::lock_guard guard(lock_);
  content_.unchanged = true;
  std::string text;
  for (const Entry& entry : content_.entries) {
    text += Prefix(entry.severity);
    text.append(SubjectText(entry.subject)).append(" : ").append(entry.text) += '\n';
  }
  Nox::AppendFormat(text, "OK (%u Errors, %u Warnings)\n", content_.errors, content_.warnings);
  return text;
}

int ResultsLog::HandleListUpdated(std::string_view) {
  return 0;
}

void PrintResults(ResultsLog& log) {
  const std::string text = log.TakePrintedForm();
  std::fwrite(text.data(), 1, text.size(), stdout);
}

}  // namespace morvex
