#include "host/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <ctime>

namespace morvex::host {

namespace {

KUID RequireKuid(const std::string& name, const std::string& text) {
  const std::optional<KUID> kuid = ParseKuid(text);
  if (!kuid)
    throw CLI::ValidationError(name, "'" + text + "' is no KUID; write it as 100:200 or \"<kuid:100:200>\"");
  return *kuid;
}

template <typename Number>
bool TakeNumber(std::string_view& text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<size_t>(end - text.data()));
  return error == std::errc();
}

bool TakeDash(std::string_view& text) {
  if (!text.starts_with('-')) return false;
  text.remove_prefix(1);
  return true;
}

std::optional<uint64_t> ParseDay(std::string_view text, DayEnd end) {
  std::tm day{};
  day.tm_isdst = -1;
  const bool isDay = TakeNumber(text, day.tm_year) && TakeDash(text) && TakeNumber(text, day.tm_mon) &&
                     TakeDash(text) && TakeNumber(text, day.tm_mday) && text.empty();
  if (!isDay || day.tm_mon < 1 || day.tm_mon > 12 || day.tm_mday < 1 || day.tm_mday > 31) return std::nullopt;
  day.tm_year -= 1900;
  day.tm_mon -= 1;
  if (end == DayEnd::kLastSecond) {
    day.tm_mday += 1;
    day.tm_sec = -1;
  }
  const std::time_t seconds = std::mktime(&day);
  if (seconds < 0) return std::nullopt;
  return static_cast<uint64_t>(seconds);
}

std::optional<uint64_t> ParseTime(std::string_view text, DayEnd end) {
  uint64_t seconds = 0;
  std::string_view rest = text;
  if (TakeNumber(rest, seconds) && rest.empty()) return seconds;
  return ParseDay(text, end);
}

}  // namespace

std::optional<KUID> ParseKuid(std::string_view text) {
  const auto colons = std::count(text.begin(), text.end(), ':');
  const bool isBareLong = colons == 2 && !text.starts_with('<');
  const KUID kuid = isBareLong ? KUID("<kuid2:" + std::string(text) + ">", true) : KUID(text, false);
  if (colons == 0 || kuid.IsNull()) return std::nullopt;
  return kuid;
}

CLI::Option* AddKuids(CLI::App& command, const std::string& name, std::vector<KUID>& kuids,
                      const std::string& help) {
  const auto take = [&kuids, name](const std::vector<std::string>& texts) {
    for (const std::string& text : texts)
      kuids.push_back(RequireKuid(name, text));
  };
  return command.add_option_function<std::vector<std::string>>(name, take, help)->type_name("KUID");
}

CLI::Option* AddKuid(CLI::App& command, const std::string& name, KUID& kuid, const std::string& help) {
  const auto take = [&kuid, name](const std::string& text) { kuid = RequireKuid(name, text); };
  return command.add_option_function<std::string>(name, take, help)->type_name("KUID");
}

CLI::Option* AddTime(CLI::App& command, const std::string& name, uint64_t& seconds, DayEnd end,
                     const std::string& help) {
  const auto take = [&seconds, name, end](const std::string& text) {
    const std::optional<uint64_t> parsed = ParseTime(text, end);
    if (!parsed) throw CLI::ValidationError(name, "'" + text + "' is no day; write it as 2024-05-31");
    seconds = *parsed;
  };
  return command.add_option_function<std::string>(name, take, help)->type_name("DAY");
}

}  // namespace morvex::host
