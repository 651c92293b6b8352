#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tagdata/kuid.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace morvex::host {

// Arguments that several commands take.

// A KUID in any of its forms, or without keyword and brackets, as "100:200" or "100:200:3"; none if the text is none.
std::optional<KUID> ParseKuid(std::string_view text);

// KUIDs in order. A text that is none is a wrong command line.
CLI::Option* AddKuids(CLI::App& command, const std::string& name, std::vector<KUID>& kuids,
                      const std::string& help);
CLI::Option* AddKuid(CLI::App& command, const std::string& name, KUID& kuid, const std::string& help);

// Seconds since 1970: such a number, or the first or last second, here, of a day as "2024-05-31".
enum class DayEnd { kFirstSecond, kLastSecond };
CLI::Option* AddTime(CLI::App& command, const std::string& name, uint64_t& seconds, DayEnd end,
                     const std::string& help);

}  // namespace morvex::host
