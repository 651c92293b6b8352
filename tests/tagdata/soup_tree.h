#pragma once

#include <string>
#include <string_view>

#include "tagdata/tag_container.h"

// A whole soup on one line, for comparing: a null tag is its name; then a=5, a=f1.5,2, a="text",
// a=<kuid:1:2>, a=#0A0B (binary), and n{...} for a container. Tags are separated by blanks. Not for deep ones.
std::string Tree(const morvex::TagContainer& soup);

// The soup of a config text in UTF-8.
morvex::TagContainer FromText(std::string_view text);
