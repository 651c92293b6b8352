#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace QELLib {

class Container;
class Tag;

enum class RecordSeverity : int32_t { kInformation = 0, kWarning = 2, kError = 3 };

// One finding. At most one of the two targets is set; neither means the asset as a whole.
struct ErrorRecord {
  const Container* container = nullptr;
  const Tag* tag = nullptr;
  std::string text;  // without prefix, final: no placeholder in it means anything
  RecordSeverity severity = RecordSeverity::kInformation;

  const void* Target() const { return tag != nullptr ? static_cast<const void*>(tag) : container; }
};

// Collects what is found about one asset. One in the process, used by one thread at a time. Records of a
// target go with it, so none points to a dead object.
class ErrorHandler {
 public:
  using Records = std::list<ErrorRecord>;

  static void Create();
  // Null before Create and after Destroy.
  static ErrorHandler* Get();
  static void Destroy();

  ErrorHandler() = default;
  ErrorHandler(const ErrorHandler&) = delete;
  ErrorHandler& operator=(const ErrorHandler&) = delete;
  virtual ~ErrorHandler() = default;

  virtual void Clear();

  // A report is refused, and answers false, if its text is there already: on the same target, or, for a
  // report on the asset as a whole, on any.
  virtual bool ErrorOnContainer(std::string_view text, const Container* container);
  virtual bool ErrorOnTag(std::string_view text, const Tag* tag);
  virtual bool Error(std::string_view text);
  virtual bool WarningOnContainer(std::string_view text, const Container* container);
  virtual bool WarningOnTag(std::string_view text, const Tag* tag);
  virtual bool Warning(std::string_view text);
  virtual bool InfoOnContainer(std::string_view text, const Container* container);
  virtual bool InfoOnTag(std::string_view text, const Tag* tag);
  virtual bool Info(std::string_view text);
  // For those who watch the work step by step; nothing is kept.
  virtual bool Trace(std::string_view text, const void* object);
  virtual bool TraceDetail(std::string_view text, const void* object);

  virtual bool IsNewText(std::string_view text) const;
  virtual void CopyRecords(const Records& list);
  // Each new record is written to standard output as well.
  virtual void SetVerbose(bool flag);
  virtual void RemoveTag(const Tag* tag);
  virtual void RemoveContainer(const Container* container);
  // In the order of the reports.
  virtual const Records& GetRecords() const;

 private:
  struct Key {
    const void* target;
    std::string_view text;  // of the record
    bool operator==(const Key&) const = default;
  };
  struct KeyHash {
    size_t operator()(const Key& key) const noexcept;
  };

  bool Report(ErrorRecord record);
  void Keep(ErrorRecord record);
  void RemoveTarget(const void* target);
  void Print(const ErrorRecord& record) const;

  bool verbose_ = false;
  Records records_;
  std::unordered_set<Key, KeyHash> known_;
  std::unordered_map<const void*, std::vector<Records::iterator>> byTarget_;
  std::unordered_map<std::string, size_t> texts_;  // how many records have each
};

}  // namespace QELLib
