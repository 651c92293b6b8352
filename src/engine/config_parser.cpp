#include "engine/config_parser.h"

#include <algorithm>

#include "engine/number_text.h"
#include "engine/text.h"

namespace Nox {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnds = "\r\n";

bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}

bool BeginsComment(std::string_view text) {
  return text.starts_with('#') || text.starts_with("//");
}

// Whether the values of an item end here.
bool EndsItem(std::string_view text) {
  return text.empty() || IsLineEnd(text[0]) || text[0] == ';' || text[0] == '{' || text[0] == '}' ||
         BeginsComment(text);
}

std::size_t BlanksOfLine(std::string_view text) {
  std::size_t size = 0;
  while (size < text.size() && IsBlank(text[size]) && !IsLineEnd(text[size]))
    ++size;
  return size;
}

// The size of the word at the start of the text, with its quotes; 0 if the quotes aren't closed.
std::size_t WordSize(std::string_view text) {
  if (text.starts_with('"')) {
    const std::size_t close = text.find_first_of("\"\r\n", 1);
    return close != text.npos && text[close] == '"' ? close + 1 : 0;
  }
  std::size_t size = 0;
  while (!EndsItem(text.substr(size)) && !IsBlank(text[size]) && text[size] != '"')
    ++size;
  return size;
}

std::string_view WithoutQuotes(std::string_view word) {
  return word.starts_with('"') ? word.substr(1, word.size() - 2) : word;
}

}  // namespace

bool ConfigValues::Next(std::string_view& value) {
  rest_.remove_prefix(BlanksOfLine(rest_));
  if (rest_.empty()) return false;
  const std::size_t size = WordSize(rest_);
  value = WithoutQuotes(rest_.substr(0, size));
  rest_.remove_prefix(size);
  return true;
}

bool ConfigValues::Next(float& number) {
  std::string_view value;
  float read = 0;
  if (!Next(value) || !ScanFloat(value, read) || !value.empty()) return false;
  number = read;
  return true;
}

std::string_view ConfigData::Key() const {
  if (parser_ == nullptr) return {};
  const ConfigParser::Item& item = parser_->items_[item_];
  return WithoutQuotes(parser_->text_.substr(item.key, item.keySize));
}

ConfigValues ConfigData::Values() const {
  if (parser_ == nullptr) return ConfigValues({});
  const ConfigParser::Item& item = parser_->items_[item_];
  return ConfigValues(parser_->text_.substr(item.values, item.valuesSize));
}

ConfigData ConfigData::FirstChild() const {
  const std::uint32_t child = parser_ == nullptr ? 0 : parser_->items_[item_].firstChild;
  return child == 0 ? ConfigData() : ConfigData(*parser_, child);
}

ConfigData ConfigData::Next() const {
  const std::uint32_t next = parser_ == nullptr ? 0 : parser_->items_[item_].next;
  return next == 0 ? ConfigData() : ConfigData(*parser_, next);
}

std::uint32_t ConfigData::Count(std::string_view key) const {
  std::uint32_t count = 0;
  for (ConfigData child = FirstChild(); child; child = child.Next())
    count += EqualsIgnoreCase(child.Key(), key);
  return count;
}

ConfigData ConfigData::Find(std::string_view key, std::uint32_t index) const {
  ConfigData child = FirstChild();
  for (; child; child = child.Next()) {
    if (EqualsIgnoreCase(child.Key(), key) && index-- == 0) break;
  }
  return child;
}

bool ConfigData::operator>>(float& number) const {
  return Values().Next(number);
}

bool ConfigData::operator>>(bool& truth) const {
  std::string_view value;
  if (!Values().Next(value)) return false;
  const bool isTrue = value == "1" || EqualsIgnoreCase(value, "true");
  if (!isTrue && value != "0" && !EqualsIgnoreCase(value, "false")) return false;
  truth = isTrue;
  return true;
}

bool ConfigData::operator>>(std::string& text) const {
  std::string_view value;
  if (!Values().Next(value)) return false;
  text = value;
  return true;
}

bool ConfigData::operator>>(std::span<float> numbers) const {
  ConfigValues values = Values();
  return std::all_of(numbers.begin(), numbers.end(), [&](float& number) { return values.Next(number); }) &&
         values.AtEnd();
}

// Reads the key and the values at `at`, and moves behind them.
bool ConfigParser::ReadItem(std::size_t& at) {
  Item item;
  item.key = static_cast<std::uint32_t>(at);
  const std::size_t keySize = WordSize(text_.substr(at));
  if (keySize == 0) return false;
  item.keySize = static_cast<std::uint32_t>(keySize);
  at += keySize;
  at += BlanksOfLine(text_.substr(at));
  item.values = static_cast<std::uint32_t>(at);
  while (!EndsItem(text_.substr(at))) {
    const std::size_t size = WordSize(text_.substr(at));
    if (size == 0) return false;
    at += size;
    item.valuesSize = static_cast<std::uint32_t>(at - item.values);
    at += BlanksOfLine(text_.substr(at));
  }
  Append(item);
  mayOpen_ = true;
  return true;
}

void ConfigParser::Append(const Item& item) {
  const auto number = static_cast<std::uint32_t>(items_.size());
  items_.push_back(item);
  std::uint32_t& last = lastChild_.back();
  (last == 0 ? items_[open_.back()].firstChild : items_[last].next) = number;
  last = number;
}

bool ConfigParser::OpenBrace() {
  if (!mayOpen_ || open_.size() > kMaxDepth) return false;
  open_.push_back(lastChild_.back());
  lastChild_.push_back(0);
  mayOpen_ = false;
  return true;
}

bool ConfigParser::CloseBrace() {
  if (open_.size() == 1) return false;
  open_.pop_back();
  lastChild_.pop_back();
  mayOpen_ = false;
  return true;
}

// Passes what stands at `at`, which is no blank.
bool ConfigParser::Step(std::size_t& at) {
  switch (text_[at]) {
    case '{':
      ++at;
      return OpenBrace();
    case '}':
      ++at;
      return CloseBrace();
    case ';':
      ++at;
      mayOpen_ = false;
      return true;
    default:
      return ReadItem(at);
  }
}

bool ConfigParser::Parse(std::string_view text) {
  text_ = text;
  items_ = {Item()};
  open_ = {0};
  lastChild_ = {0};
  mayOpen_ = false;
  if (text.size() > kMaxText) return false;
  std::size_t at = text.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0;
  while (at < text.size()) {
    if (BeginsComment(text.substr(at))) {
      at = std::min(text.find_first_of(kLineEnds, at), text.size());
    } else if (IsBlank(text[at])) {
      ++at;
    } else if (!Step(at)) {
      return false;
    }
  }
  const ConfigData first = Top().FirstChild();
  return open_.size() == 1 && EqualsIgnoreCase(first.Key(), "version") && first >> version_;
}

}  // namespace Nox
