#pragma once

#include <cstdint>
#include <string>

namespace morvex {

// The language codes of the products and the numbers that stand for them in a locale.

// Takes over the primary and sub language of a code, in any case. A code that isn't known becomes "US".
void ProductLanguageToWindows(std::string& code);

// Makes the locale of the calling thread that of the language taken over last. Reading and writing numbers
// doesn't depend on it.
void ProductApplyLanguage();

// sub * 1024 + primary of the calling thread; 0 before ProductApplyLanguage.
[[nodiscard]] uint32_t GetThreadLocale();

}  // namespace morvex
