#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvex {

// The arguments of one line of a command file, in order, without the program's own name. `text` is the line with
// its line end, if it had one. Arguments stand between blanks or double quotes; two blanks have an empty argument
// between them, text directly before an opening or behind a closing quote is dropped, and a quote that is never
// closed gives nothing.
std::vector<std::string> SplitBatchLine(std::string_view text);

// True when the line asks for no command at all: its last argument begins with a line end or a blank.
bool IsIdleLine(const std::vector<std::string>& arguments);

}  // namespace morvex
