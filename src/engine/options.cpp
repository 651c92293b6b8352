#include "engine/options.h"

#include <algorithm>

#include "engine/text.h"

namespace Nox {

Options::Options(std::string_view text) {
  while (!(text = Trim(text)).empty()) {
    const auto blank = std::find_if(text.begin(), text.end(), IsBlank);
    std::string_view word = text.substr(0, static_cast<std::size_t>(blank - text.begin()));
    text.remove_prefix(word.size());
    if (word.starts_with('-')) word.remove_prefix(1);
    const std::size_t equals = std::min(word.find('='), word.size());
    const std::string_view value = word.substr(std::min(equals + 1, word.size()));
    options_.push_back({std::string(word.substr(0, equals)), std::string(value)});
  }
}

void Options::Init(std::string_view program, std::string_view logKey) {
  program_ = program;
  logKey_ = logKey;
}

std::optional<std::string_view> Options::Value(std::string_view key) const {
  for (const Option& option : options_) {
    if (EqualsIgnoreCase(option.key, key)) return option.value;
  }
  return std::nullopt;
}

}  // namespace Nox
