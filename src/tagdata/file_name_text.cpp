#include "tagdata/file_name_text.h"

#include <algorithm>

namespace morvex {
namespace {

bool IsSafe(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == ' ';
}

}  // namespace

std::string SanitiseFileName(std::string_view text) {
  std::string name(text);
  std::replace_if(
      name.begin(), name.end(), [](char c) { return !IsSafe(c); }, '_');
  name.erase(name.find_last_not_of(' ') + 1);
  return name;
}

}  // namespace morvex
