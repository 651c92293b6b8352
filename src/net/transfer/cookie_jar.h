#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace morvex {

// The cookies of one host, four at most. They never go to another.
class HTTPCookieJar {
 public:
  static constexpr std::size_t kMaxCookies = 4;
  static constexpr std::size_t kMaxName = 31;
  static constexpr std::size_t kMaxValue = 255;

  struct Cookie {
    std::string name;
    std::string value;
  };

  // The host that the cookies are from. Another host than before empties the jar.
  void SetHost(std::string_view host);
  [[nodiscard]] const std::string& Host() const { return host_; }

  // Takes the value of a Set-Cookie line. A cookie of the same name is replaced; one without a name or with
  // control characters is dropped, and so is one too many.
  void StoreCookie(std::string_view text);
  // Puts a cookie in by hand, in the same way.
  void StoreCookie(std::string_view name, std::string_view value);
  // Takes the other's cookies in place of its own, if it is of the same host.
  void CopyCookies(const HTTPCookieJar& other);
  void ClearCookies() { cookies_.clear(); }

  [[nodiscard]] const std::vector<Cookie>& Cookies() const { return cookies_; }
  // "a=1;b=2"; empty without cookies.
  [[nodiscard]] std::string CookieText() const;

 private:
  std::string host_;
  std::vector<Cookie> cookies_;
};

}  // namespace morvex
