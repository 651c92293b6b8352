#pragma once

#include <cstdint>
#include <string>

namespace morvex {

// The IPv4 address of a name, in network order; 0 if it has none. A name of digits and points alone is taken as the
// four numbers of an address and never looked up. May wait for the system's resolver.
[[nodiscard]] std::uint32_t NameToIPAddress(const std::string& name);

// Whether a name is of digits and points alone.
[[nodiscard]] bool IsIPAddress(const std::string& name);

}  // namespace morvex
