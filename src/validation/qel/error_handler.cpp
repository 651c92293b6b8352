#include "validation/qel/error_handler.h"

#include <cstdio>
#include <functional>
#include <memory>
#include <utility>

#include "validation/qel/data_manager.h"
#include "validation/qel/message_entries.h"

namespace QELLib {
namespace {

std::unique_ptr<ErrorHandler>& Instance() {
  static std::unique_ptr<ErrorHandler> handler;
  return handler;
}

MessageEntry PrefixOf(RecordSeverity severity) {
  switch (severity) {
    case RecordSeverity::kError:
      return kEntryErrorPrefix;
    case RecordSeverity::kWarning:
      return kEntryWarningPrefix;
    case RecordSeverity::kInformation:
      break;
  }
  return kEntryInformationPrefix;
}

}  // namespace

void ErrorHandler::Create() {
  Instance() = std::make_unique<ErrorHandler>();
}

ErrorHandler* ErrorHandler::Get() {
  return Instance().get();
}

void ErrorHandler::Destroy() {
  Instance().reset();
}

size_t ErrorHandler::KeyHash::operator()(const Key& key) const noexcept {
  return std::hash<const void*>()(key.target) * 31 + std::hash<std::string_view>()(key.text);
}

void ErrorHandler::Clear() {
  known_.clear();
  byTarget_.clear();
  texts_.clear();
  records_.clear();
}

bool ErrorHandler::ErrorOnContainer(std::string_view text, const Container* container) {
  return Report({container, nullptr, std::string(text), RecordSeverity::kError});
}

bool ErrorHandler::ErrorOnTag(std::string_view text, const Tag* tag) {
  return Report({nullptr, tag, std::string(text), RecordSeverity::kError});
}

bool ErrorHandler::Error(std::string_view text) {
  return Report({nullptr, nullptr, std::string(text), RecordSeverity::kError});
}

bool ErrorHandler::WarningOnContainer(std::string_view text, const Container* container) {
  return Report({container, nullptr, std::string(text), RecordSeverity::kWarning});
}

bool ErrorHandler::WarningOnTag(std::string_view text, const Tag* tag) {
  return Report({nullptr, tag, std::string(text), RecordSeverity::kWarning});
}

bool ErrorHandler::Warning(std::string_view text) {
  return Report({nullptr, nullptr, std::string(text), RecordSeverity::kWarning});
}

bool ErrorHandler::InfoOnContainer(std::string_view text, const Container* container) {
  return Report({container, nullptr, std::string(text), RecordSeverity::kInformation});
}

bool ErrorHandler::InfoOnTag(std::string_view text, const Tag* tag) {
  return Report({nullptr, tag, std::string(text), RecordSeverity::kInformation});
}

bool ErrorHandler::Info(std::string_view text) {
  return Report({nullptr, nullptr, std::string(text), RecordSeverity::kInformation});
}

bool ErrorHandler::Trace(std::string_view, const void*) {
  return true;
}

bool ErrorHandler::TraceDetail(std::string_view, const void*) {
  return true;
}

bool ErrorHandler::IsNewText(std::string_view text) const {
  return !texts_.contains(std::string(text));
}

void ErrorHandler::CopyRecords(const Records& list) {
  const Records copy = list;  // the list may be our own
  Clear();
  for (const ErrorRecord& record : copy)
    Keep(record);
}

void ErrorHandler::SetVerbose(bool flag) {
  verbose_ = flag;
}

void ErrorHandler::RemoveTag(const Tag* tag) {
  RemoveTarget(tag);
}

void ErrorHandler::RemoveContainer(const Container* container) {
  RemoveTarget(container);
}

const ErrorHandler::Records& ErrorHandler::GetRecords() const {
  return records_;
}

bool ErrorHandler::Report(ErrorRecord record) {
  const void* const target = record.Target();
  const bool isKnown = target == nullptr ? !IsNewText(record.text) : known_.contains({target, record.text});
  if (isKnown) return false;
  if (verbose_) Print(record);
  Keep(std::move(record));
  return true;
}

void ErrorHandler::Keep(ErrorRecord record) {
  const auto kept = records_.insert(records_.end(), std::move(record));
  ++texts_[kept->text];
  known_.insert({kept->Target(), kept->text});
  byTarget_[kept->Target()].push_back(kept);
}

void ErrorHandler::RemoveTarget(const void* target) {
  if (target == nullptr) return;
  const auto found = byTarget_.find(target);
  if (found == byTarget_.end()) return;
  for (const Records::iterator record : found->second) {
    known_.erase({target, record->text});
    const auto text = texts_.find(record->text);
    if (--text->second == 0) texts_.erase(text);
    records_.erase(record);
  }
  byTarget_.erase(found);
}

void ErrorHandler::Print(const ErrorRecord& record) const {
  const DataManager* const manager = DataManager::Get();
  const std::string prefix = manager == nullptr ? "" : manager->GetString(PrefixOf(record.severity)).Text();
  std::printf("%s%s\n", prefix.c_str(), record.text.c_str());
}

}  // namespace QELLib
