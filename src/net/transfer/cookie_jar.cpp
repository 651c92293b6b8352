#include "net/transfer/cookie_jar.h"

#include <algorithm>

#include "engine/text.h"
#include "tagdata/text_match.h"

namespace morvex {
namespace {

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
}

bool IsPlain(std::string_view text) {
  return std::none_of(text.begin(), text.end(), IsControl);
}

}  // namespace

void HTTPCookieJar::SetHost(std::string_view host) {
  if (!Nox::EqualsIgnoreCase(host_, host)) ClearCookies();
  host_ = host;
}

void HTTPCookieJar::StoreCookie(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == text.npos) return;
  const std::string_view value = text.substr(equals + 1);
  StoreCookie(text.substr(0, equals), value.substr(0, value.find(';')));
}

void HTTPCookieJar::StoreCookie(std::string_view name, std::string_view value) {
  name = name.substr(0, kMaxName);
  value = value.substr(0, kMaxValue);
  if (name.empty() || !IsPlain(name) || !IsPlain(value)) return;
  const auto same = std::find_if(cookies_.begin(), cookies_.end(), [&](const Cookie& cookie) {
    return MatchPattern(name, cookie.name, false);
  });
  if (same != cookies_.end()) {
    same->value = value;
  } else if (cookies_.size() < kMaxCookies) {
    cookies_.push_back({std::string(name), std::string(value)});
  }
}

void HTTPCookieJar::CopyCookies(const HTTPCookieJar& other) {
  if (Nox::EqualsIgnoreCase(host_, other.host_)) cookies_ = other.cookies_;
}

std::string HTTPCookieJar::CookieText() const {
  std::string text;
  for (const Cookie& cookie : cookies_) {
    if (!text.empty()) text += ';';
    text += cookie.name + '=' + cookie.value;
  }
  return text;
}

}  // namespace morvex
