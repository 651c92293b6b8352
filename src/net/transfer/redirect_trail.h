#pragma once

#include <string_view>

#include "net/transfer/url.h"

namespace morvex {

// Follows the Location lines of one request. No trail is longer than kMaxRedirects, and none leads out of the
// network: a peer can't send its client to a local file or to the login.
class RedirectTrail {
 public:
  static constexpr int kMaxRedirects = 20;

  // Moves `url` to where the location, which may be relative to it, leads. False, with `url` as it was, if that
  // must not be followed. User and password go on only with a location that names no host.
  [[nodiscard]] bool Follow(URL& url, std::string_view location);

 private:
  int followed_ = 0;
};

// Whether two URLs differ in path and query alone, so that one connection serves both: equal schemes, hosts
// (ignoring case) and ports.
[[nodiscard]] bool SameServer(const URL& a, const URL& b);

}  // namespace morvex
