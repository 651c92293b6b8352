#include "frontend/tool/name_matcher.h"

#include "tagdata/text_match.h"

namespace morvex {

namespace {

constexpr std::string_view kTextSuffix = ".txt";

// One value for all bytes that count as equal: letters without their case, both slashes, all control characters.
unsigned char Fold(char byte) {
  constexpr unsigned char kControl = 255;
  const auto value = static_cast<unsigned char>(byte);
  if (value < ' ') return kControl;
  if (value >= 'A' && value <= 'Z') return static_cast<unsigned char>(value - 'A' + 'a');
  return value == '\\' ? static_cast<unsigned char>('/') : value;
}

}  // namespace

NameMatcher::NameMatcher(const std::vector<std::string>& names) {
  for (std::string_view name : names) {
    if (name.size() >= kTextSuffix.size() &&
        CompareNoCase(name.substr(name.size() - kTextSuffix.size()), kTextSuffix)) {
      name.remove_suffix(kTextSuffix.size());
    }
    Add(name);
  }
}

std::uint64_t NameMatcher::Key(Node node, char byte) {
  return (static_cast<std::uint64_t>(node) << 8) | Fold(byte);
}

void NameMatcher::Add(std::string_view name) {
  Node node = 0;
  for (std::size_t i = name.size(); i > 0; --i) {
    const auto [place, isNew] = children_.try_emplace(Key(node, name[i - 1]), lastNode_ + 1);
    if (isNew) ++lastNode_;
    node = place->second;
  }
}

std::size_t NameMatcher::MatchAtEnd(std::string_view text) const {
  Node node = 0;
  std::size_t length = 0;
  while (length < text.size()) {
    const auto child = children_.find(Key(node, text[text.size() - 1 - length]));
    if (child == children_.end()) break;
    node = child->second;
    ++length;
  }
  return length;
}

}  // namespace morvex
