#pragma once

#include <cstdint>

#include "engine/pstring.h"

namespace morvex {

// The name of an author: 0 is the local user; negative numbers have fixed names; a number that the author table
// lacks gives "#" and the number, and waits for a look-up by a host program. Takes the database lock for writing.
Nox::PString ZEBAuthorName(int32_t number);

}  // namespace morvex
