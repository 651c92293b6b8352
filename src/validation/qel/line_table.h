#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/pstring.h"

namespace QELLib {

// A line of a table, split at its first blank.
struct LineEntry {
  Nox::PString name;
  Nox::PString value;  // empty: the line has no blank
};

using LineTable = std::vector<LineEntry>;

// The files of the data folder, each as the table of its lines, by file name. What can't be read is told to
// the ErrorHandler, and its table is missing.
using LineTables = std::unordered_map<Nox::PString, LineTable>;
[[nodiscard]] LineTables ReadLineTables(std::string_view folder);

// Kinds that are made with the new form: the lines of a file in lower case, and "bridge".
[[nodiscard]] std::vector<Nox::PString> ReadNewFormKinds(std::string_view folder);

}  // namespace QELLib
