#include "frontend/settings/product_language.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <string_view>

#include "engine/text.h"

namespace morvex {
namespace {

struct Language {
  std::string_view code;
  uint32_t primary;
  uint32_t sub;
};

constexpr std::string_view kFallback = "US";
constexpr Language kLanguages[] = {
    {"EN", 9, 3},  {"AU", 9, 3},  {"US", 9, 3},  {"UK", 9, 2},  {"DE", 7, 1},  {"FR", 12, 1},
    {"IT", 16, 1}, {"RU", 25, 1}, {"CZ", 5, 1},  {"PL", 21, 1}, {"ES", 10, 3}, {"CH", 12, 4},
    {"SE", 29, 1}, {"CN", 4, 1},  {"NL", 19, 1}, {"KR", 18, 1},
};

const Language* FindLanguage(std::string_view code) {
  const auto found = std::find_if(std::begin(kLanguages), std::end(kLanguages),
                                  [&](const Language& l) { return Nox::EqualsIgnoreCase(l.code, code); });
  return found == std::end(kLanguages) ? nullptr : found;
}

std::atomic<uint32_t> chosenLocale{0};
thread_local uint32_t threadLocale = 0;

}  // namespace

void ProductLanguageToWindows(std::string& code) {
  const Language* language = FindLanguage(code);
  if (language == nullptr) {
    code = kFallback;
    language = FindLanguage(code);
  }
  chosenLocale = language->sub * 1024 + language->primary;
}

void ProductApplyLanguage() {
  threadLocale = chosenLocale;
}

uint32_t GetThreadLocale() {
  return threadLocale;
}

}  // namespace morvex
