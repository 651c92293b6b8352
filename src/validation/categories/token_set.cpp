#include "validation/categories/token_set.h"

#include <algorithm>

namespace morvex {

TokenSet::TokenSet(std::string_view tokens) {
  while (!tokens.empty()) {
    const std::string_view token = tokens.substr(0, tokens.find(';'));
    Insert(token);
    tokens.remove_prefix(std::min(token.size() + 1, tokens.size()));
  }
}

bool TokenSet::Contains(std::string_view token) const {
  if (!many_.empty()) return many_.contains(token);
  return std::find(few_.begin(), few_.end(), token) != few_.end();
}

void TokenSet::Insert(std::string_view token) {
  if (token.empty()) return;
  if (many_.empty() && few_.size() < kFew) {
    few_.push_back(token);
    return;
  }
  if (many_.empty()) many_.insert(few_.begin(), few_.end());
  many_.insert(token);
}

}  // namespace morvex
