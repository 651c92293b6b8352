#pragma once

#include <mutex>
#include <string>
#include <string_view>

#include "engine/text.h"
#include "net/transfer/cookie_jar.h"

namespace morvex {

// What the web server of the service gave at the login, for all later connections to it. Any thread; the lock is
// innermost.
class LoginCookies {
 public:
  // `jar` holds the cookies of the login's answer, `cookie` ("name=value") the one that its body names.
  void Store(const HTTPCookieJar& jar, std::string_view cookie) {
    const std::lock_guard guard(lock_);
    jar_ = jar;
    cookie_ = cookie;
  }
  // Puts them into a jar of the same host. False if there was no login at that host yet.
  bool CopyTo(HTTPCookieJar& jar) const {
    const std::lock_guard guard(lock_);
    if (cookie_.empty() || !Nox::EqualsIgnoreCase(jar.Host(), jar_.Host())) return false;
    jar.CopyCookies(jar_);
    jar.StoreCookie(cookie_);
    return true;
  }
  void Clear() { Store(HTTPCookieJar(), {}); }

 private:
  mutable std::mutex lock_;
  HTTPCookieJar jar_;
  std::string cookie_;
};

}  // namespace morvex
