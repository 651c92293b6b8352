// Cookies as a server sets them, a line each.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "net/transfer/cookie_jar.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  morvex::HTTPCookieJar jar;
  jar.SetHost("h");
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    jar.StoreCookie(line);
  }
  if (jar.Cookies().size() > jar.kMaxCookies) std::abort();
  for (const auto& cookie : jar.Cookies()) {
    if (cookie.name.empty() || cookie.name.size() > jar.kMaxName || cookie.value.size() > jar.kMaxValue)
      std::abort();
  }
  for (const char c : jar.CookieText()) {
    if (static_cast<unsigned char>(c) < ' ') std::abort();
  }
  return 0;
}
