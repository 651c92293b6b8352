#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace morvex {

// Finds, at the end of a text, the longest run of bytes that some name of a list ends in: equal without regard to
// letter case, with both slashes equal to each other. A name's own ".txt" doesn't count. The names lie backward in
// one tree, so that a look-up costs as many steps as bytes match, however long the list is.
class NameMatcher {
 public:
  explicit NameMatcher(const std::vector<std::string>& names);

  // How many bytes at the end of `text` match.
  std::size_t MatchAtEnd(std::string_view text) const;

 private:
  using Node = std::uint32_t;
  static std::uint64_t Key(Node node, char byte);

  void Add(std::string_view name);

  std::unordered_map<std::uint64_t, Node> children_;  // by node and folded byte; node 0 is the root
  Node lastNode_ = 0;
};

}  // namespace morvex
