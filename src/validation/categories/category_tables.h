#pragma once

#include <span>
#include <string_view>

namespace morvex {

// The vocabulary of categories. All tables are constant data, scanned from the top: their order decides.

// The tokens that a category string may hold.
extern const std::span<const std::string_view> CategoryTokens;

// Names a category for people. Of the rows whose expression fits, the one with the highest priority is
// meant, and of several such the first.
struct CategoryLabelRow {
  std::string_view expression;
  std::string_view label;
  int priority;
};
extern const std::span<const CategoryLabelRow> CategoryLabelTable;  // short labels, as they are printed
extern const std::span<const CategoryLabelRow> CategoryNameTable;   // longer names

// The label of the best row, or the empty text.
std::string_view CategoryLabel(std::span<const CategoryLabelRow> table, std::string_view value);

// The class that follows from an asset's kind and type.
struct KindClassRow {
  std::string_view kind;           // lower case
  std::string_view type;           // an expression; empty fits any type
  std::string_view categoryClass;  // tokens
};
extern const std::span<const KindClassRow> KindClassTable;

// The class behind a letter code of old configurations.
struct LegacyClassRow {
  std::string_view categoryClass;
  std::string_view kind;   // empty fits any kind
  std::string_view codes;  // with blanks between them
};
extern const std::span<const LegacyClassRow> LegacyClassTable;

}  // namespace morvex
