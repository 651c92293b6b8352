#pragma once

#include <string>
#include <string_view>

namespace morvex {

// A category string ("value") is a list of tokens with ';' between them, as in "TR;TV;LOC;STEM"; their order
// means nothing, and a '|' ends it. A category expression chooses among values:
//
//   expression:  term | term | ...      holds if any of its terms holds
//   term:        token ; token ; ...    holds if all of its tokens hold; a term without tokens holds
//   token:       X or -X                X holds if the value has it, letter by letter; -X if X doesn't hold
//
// Bare "-" holds for every value. An empty expression holds; a '|' at the very end adds no term. Region
// lists, era lists and keywords have the same form. Both run once for each asset of a search and copy nothing.

// True if the token at the start of `token`, which ends at a ';', a '|' or the end, holds for the value.
bool CategoryTokenMatches(std::string_view value, std::string_view token);

bool MatchExpression(std::string_view value, std::string_view expression);

// Makes `out` to `base` with each token of `extra` that it lacks at the end. `out` may be the text that
// `base` is.
void CategoryMerge(std::string_view base, std::string_view extra, std::string& out);

}  // namespace morvex
