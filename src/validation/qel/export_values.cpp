// Export of texts and numbers.

#include "engine/number_text.h"
#include "validation/qel/container.h"
#include "validation/qel/export_check.h"
#include "validation/qel/number_list.h"
#include "validation/qel/report.h"

namespace QELLib {

bool Container::ExportFloat(const Tag& tag, TagContainer& out) {
  out.SetFloat(tag.name, Nox::ReadFloat(tag.value));
  return PassesRules(tag);
}

bool Container::ExportInt(const Tag& tag, TagContainer& out) {
  out.SetInt(tag.name, Nox::ReadInt(tag.value));
  return PassesRules(tag);
}

bool Container::ExportBool(const Tag& tag, TagContainer& out) {
  out.SetInt(tag.name, tag.value == "1" ? 1 : 0);
  return PassesRules(tag);
}

bool Container::ExportString(const Tag& tag, TagContainer& out) {
  bool isGood = PassesRules(tag);
  if (tag.value.empty()) {
    ReportError(tag, kEntryEmptyString, tag.name, name);
    isGood = false;
  }
  out.SetString(tag.name, tag.value);
  return isGood;
}

bool Container::ExportDoubleString(const Tag& tag, TagContainer& out) {
  bool isGood = PassesRules(tag);
  if (tag.name.Empty()) {
    ReportError(tag, kEntryEmptyName, tag.name, name);
    isGood = false;
  }
  if (tag.value.empty()) {
    ReportWarning(tag, kEntryEmptyPath, tag.name, name);
    isGood = false;
  }
  out.SetString(tag.name.ToLower(), tag.value);
  return isGood;
}

bool Container::ExportOther(const Tag& tag, TagContainer& out) {
  out.SetString(tag.name, tag.value);
  return PassesRules(tag);
}

bool Container::ExportNumbers(const Tag& tag, TagContainer& out) {
  out.SetFloatArray(tag.name, ParseNumbers(tag.value));
  return PassesRules(tag);
}

bool Container::ExportVector2(const Tag& tag, TagContainer& out) {
  return ExportNumbers(tag, out);
}

bool Container::ExportVector3(const Tag& tag, TagContainer& out) {
  return ExportNumbers(tag, out);
}

bool Container::ExportVector4(const Tag& tag, TagContainer& out) {
  return ExportNumbers(tag, out);
}

bool Container::ExportVector5(const Tag& tag, TagContainer& out) {
  return ExportNumbers(tag, out);
}

bool Container::ExportFloatList(const Tag& tag, TagContainer& out) {
  return ExportNumbers(tag, out);
}

}  // namespace QELLib
