#pragma once

namespace morvex {

// What `help` and an empty command line print, without the line end behind it.
extern const char* const kHelpText;

}  // namespace morvex
