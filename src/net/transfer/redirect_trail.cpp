#include "net/transfer/redirect_trail.h"

#include <string>

#include "engine/text.h"

namespace morvex {
namespace {

constexpr std::string_view kSchemes[] = {"http", "https", "ftp"};

bool IsNetworkScheme(const URL& url) {
  for (const std::string_view scheme : kSchemes) {
    if (url.HasScheme(scheme)) return true;
  }
  return false;
}

// The location as a path of the same server, seen from `base`.
std::string AbsolutePath(const URL& base, std::string_view location) {
  const std::string_view path = base.path;
  if (location.starts_with('/')) return std::string(location);
  if (location.starts_with('?')) return std::string(path).append(location);
  const std::string_view folder = path.substr(0, path.rfind('/') + 1);
  return std::string(folder.empty() ? "/" : folder).append(location);
}

// "scheme://..." and not a path whose query holds an address.
bool IsWhole(std::string_view location) {
  const std::size_t mark = location.find("://");
  return mark != location.npos && location.find_first_of("/?") > mark;
}

URL Resolve(const URL& base, std::string_view location) {
  if (IsWhole(location)) return URL(location);
  if (location.starts_with("//")) return URL(std::string(base.scheme).append(":").append(location));
  URL url = base;
  const std::string target = AbsolutePath(base, location);
  const std::size_t query = target.find('?');
  url.path.Set(std::string_view(target).substr(0, query));
  url.query.Set(query == target.npos ? "" : std::string_view(target).substr(query));
  return url;
}

}  // namespace

bool RedirectTrail::Follow(URL& url, std::string_view location) {
  location =
      Nox::Trim(location.substr(0, location.find('#')));  // what follows '#' is for readers, not for servers
  if (location.empty() || followed_ == kMaxRedirects) return false;
  URL next = Resolve(url, location);
  next.FillFrom(url);
  if (next.host.Empty() || !IsNetworkScheme(next)) return false;
  ++followed_;
  url = next;
  return true;
}

bool SameServer(const URL& a, const URL& b) {
  return a.HasScheme(b.scheme.Empty() ? "http" : b.scheme.View()) && a.DefaultPort() == b.DefaultPort() &&
         Nox::EqualsIgnoreCase(a.host, b.host);
}

}  // namespace morvex
