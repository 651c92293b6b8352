#include <algorithm>

#include "engine/number_text.h"
#include "engine/pstring.h"
#include "engine/text.h"
#include "tagdata/kuid.h"

namespace morvex {
namespace {

constexpr std::string_view kShortStart = "<kuid:";
constexpr std::string_view kLongStart = "<kuid2:";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool ConsistsOf(std::string_view text, bool (*allowed)(char)) {
  return std::all_of(text.begin(), text.end(), allowed);
}

bool Take(std::string_view& text, char c) {
  if (text.empty() || text.front() != c) return false;
  text.remove_prefix(1);
  return true;
}

void TakeDigits(std::string_view& text) {
  while (!text.empty() && IsDigit(text.front()))
    text.remove_prefix(1);
}

// "1:2>", "-1:2>" and what stands behind. Either number may be missing.
bool IsStrictShort(std::string_view text) {
  Take(text, '-');
  TakeDigits(text);
  if (!Take(text, ':')) return false;
  TakeDigits(text);
  return Take(text, '>');
}

// "1:2>" or "1:2:3>" and what stands behind.
bool IsStrictLong(std::string_view text) {
  TakeDigits(text);
  if (!Take(text, ':')) return false;
  TakeDigits(text);
  if (Take(text, ':')) TakeDigits(text);
  return Take(text, '>');
}

// Digits, '-' and one ':'.
bool IsBarePair(std::string_view text) {
  return std::count(text.begin(), text.end(), ':') == 1 &&
         ConsistsOf(text, [](char c) { return IsDigit(c) || c == '-' || c == ':'; });
}

// As "%d:%d": stops at what doesn't fit; a number that isn't reached stays as it is.
KUID ReadPair(std::string_view text) {
  KUID kuid;
  if (Nox::ScanInt(text, kuid.userId) && Take(text, ':')) (void)Nox::ScanInt(text, kuid.contentId);
  return KUID::Make(kuid.userId, kuid.contentId);
}

KUID ReadLong(std::string_view text) {
  KUID kuid;
  int32_t version = KUID::kMaxVersion;
  if (Nox::ScanInt(text, kuid.userId) && Take(text, ':') && Nox::ScanInt(text, kuid.contentId) &&
      Take(text, ':')) {
    (void)Nox::ScanInt(text, version);
  }
  kuid.version = static_cast<uint32_t>(version);
  // The long form can be written for a negative author, but isn't read for one.
  return kuid.userId < 0 ? KUID() : kuid;
}

KUID ReadContentOnly(std::string_view text) {
  KUID kuid;
  (void)Nox::ScanInt(text, kuid.contentId);
  return kuid;
}

// What people type: without the keyword, without brackets, or with the first of them alone.
KUID ReadBare(std::string_view text) {
  if (IsBarePair(text)) return ReadPair(text);
  if (Take(text, '<')) {
    const bool closed = !text.empty() && text.back() == '>';
    if (closed) text.remove_suffix(1);
    return IsBarePair(text) ? ReadPair(text) : KUID();
  }
  if (ConsistsOf(text, [](char c) { return IsDigit(c) || c == '-'; })) return ReadContentOnly(text);
  return KUID();
}

KUID Parse(std::string_view text, bool strict) {
  text = text.substr(0, text.find('\0'));
  if (Nox::StartsWithIgnoreCase(text, kShortStart)) {
    text.remove_prefix(kShortStart.size());
    return strict && !IsStrictShort(text) ? KUID() : ReadPair(text);
  }
  if (Nox::StartsWithIgnoreCase(text, kLongStart)) {
    text.remove_prefix(kLongStart.size());
    return strict && !IsStrictLong(text) ? KUID() : ReadLong(text);
  }
  return strict ? KUID() : ReadBare(text);
}

// One text form of a KUID with a keyword or without.
std::string Write(const KUID& kuid, std::string_view shortForm, std::string_view longForm,
                  std::string_view nullForm, char separator) {
  if (kuid.IsNull()) return std::string(nullForm);
  const auto version = static_cast<int32_t>(kuid.version);
  const bool isShort = kuid.IsVersionless();
  std::string text(isShort ? shortForm : longForm);
  text.append(std::to_string(kuid.userId)) += separator;
  text.append(std::to_string(kuid.contentId));
  if (!isShort) (text += separator).append(std::to_string(version));
  return text;
}

}  // namespace

KUID::KUID(std::string_view text, bool strict) {
  const KUID kuid = Parse(text, strict);
  if (kuid.version <= kMaxVersion) *this = KUID(kuid.userId, kuid.contentId, kuid.version);
}

KUID::KUID(const char* text, bool strict) : KUID(std::string_view(text == nullptr ? "" : text), strict) {}

std::string KUID::TagText() const {
  return IsNull() ? "<NULL>" : Write(*this, "<kuid:", "<kuid2:", "", ':') + ">";
}

Nox::PString KUID::ToTagString() const {
  return Nox::PString(TagText());
}

std::string KUID::ToFileName() const {
  return Write(*this, "kuid ", "kuid2 ", "NULLKUID", ' ');
}

std::string KUID::ToDelimited(char separator) const {
  return Write(*this, "", "", "NULLKUID", separator);
}

std::string KUID::ToHtml() const {
  return IsNull() ? "&#60;NULL KUID&#62;" : Write(*this, "&#60;kuid:", "&#60;kuid2:", "", ':') + "&#62;";
}

}  // namespace morvex
