#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Nox {

class ConfigParser;

// The values of an item, one after the other.
class ConfigValues {
 public:
  explicit ConfigValues(std::string_view text) : rest_(text) {}

  // The next value without its quotes; false behind the last.
  bool Next(std::string_view& value);
  // False too for a value that isn't a number.
  bool Next(float& number);
  bool AtEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

// An item of a config text: a key, its values, its children. A view, which lives as long as its parser; keys
// don't tell cases apart. As a condition: whether there is such an item. Of an item that isn't there, everything
// is empty.
class ConfigData {
 public:
  ConfigData() = default;

  explicit operator bool() const { return parser_ != nullptr; }
  std::string_view Key() const;
  ConfigValues Values() const;

  bool HasChildren() const { return static_cast<bool>(FirstChild()); }
  std::uint32_t Count(std::string_view key) const;
  // The child of that key, counted among its like from 0.
  ConfigData Find(std::string_view key, std::uint32_t index = 0) const;
  // All children in turn: for (auto child = data.FirstChild(); child; child = child.Next()).
  ConfigData FirstChild() const;
  ConfigData Next() const;

  // The first value. False, with the target as it was, if there is none or if it is of another kind. Truth is
  // "true" or "1", "false" or "0".
  bool operator>>(float& number) const;
  bool operator>>(bool& truth) const;
  bool operator>>(std::string& text) const;
  // All values; false if they aren't that many numbers and nothing else.
  bool operator>>(std::span<float> numbers) const;

 private:
  friend class ConfigParser;
  ConfigData(const ConfigParser& parser, std::uint32_t item) : parser_(&parser), item_(item) {}

  const ConfigParser* parser_ = nullptr;
  std::uint32_t item_ = 0;
};

// Reads the engine's config texts, which are trees of items.
//
//   version 1.0                         # the first item
//   mesh 0.1 { name "engine far.im" }   // key, values, children
//   mesh "door" {
//     name door.im; animated true
//   }
//
// An item is a key and its values, ended by a line end, a semicolon or a brace; then, if braces follow, its
// children. Values are words, or texts in double quotes, which end in their line. Outside of quotes, # and //
// begin a comment that goes to the end of the line. UTF-8; a mark at the start is passed over.
class ConfigParser {
 public:
  static constexpr std::size_t kMaxText = 16 << 20;
  static constexpr std::size_t kMaxDepth = 64;

  // False if the text breaks a rule, is larger, or nests deeper. The text must outlive the parser.
  [[nodiscard]] bool Parse(std::string_view text);

  float Version() const { return version_; }
  // Holds the items of the text as its children.
  ConfigData Top() const { return {*this, 0}; }

 private:
  friend class ConfigData;

  // Small, since a text may be made of nothing but one-letter items. Places are within the text.
  struct Item {
    std::uint32_t key = 0;
    std::uint32_t keySize = 0;
    std::uint32_t values = 0;
    std::uint32_t valuesSize = 0;
    std::uint32_t firstChild = 0;  // 0: none
    std::uint32_t next = 0;        // 0: the last of its parent
  };

  bool Step(std::size_t& at);
  bool ReadItem(std::size_t& at);
  bool OpenBrace();
  bool CloseBrace();
  void Append(const Item& item);

  std::string_view text_;
  float version_ = 0;
  std::vector<Item> items_;
  std::vector<std::uint32_t> open_;       // the items whose braces are open, from the top
  std::vector<std::uint32_t> lastChild_;  // of each of those
  bool mayOpen_ = false;                  // the item that was read last may still get children
};

}  // namespace Nox
