#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace morvex {

// The tokens of a text, for telling whether one is among them. A few are compared one by one; more of them
// go into a table, so that a text of any length merges in linear time. Holds views of what it was given.
class TokenSet {
 public:
  explicit TokenSet(std::string_view tokens);

  // The empty token is never in.
  bool Contains(std::string_view token) const;
  void Insert(std::string_view token);

 private:
  static constexpr size_t kFew = 32;

  std::vector<std::string_view> few_;
  std::unordered_set<std::string_view> many_;  // all of them, once there are more than kFew
};

}  // namespace morvex
