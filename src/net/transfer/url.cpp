#include "net/transfer/url.h"

#include "engine/format.h"
#include "engine/number_text.h"
#include "engine/text.h"

namespace morvex {
namespace {

// Walks the text of an URL once.
class UrlScanner {
 public:
  explicit UrlScanner(std::string_view text) : rest_(text.substr(0, text.find('\0'))) {}

  // Gives what stands in front of the first of `stops`, or all there is, and moves there.
  std::string_view Until(std::string_view stops) {
    const std::string_view found = rest_.substr(0, rest_.find_first_of(stops));
    rest_.remove_prefix(found.size());
    return found;
  }
  bool Accept(std::string_view expected) {
    if (!rest_.starts_with(expected)) return false;
    rest_.remove_prefix(expected.size());
    return true;
  }
  // Whether an '@' comes before the path or the query begins.
  bool SeesUser() const { return rest_.substr(0, rest_.find_first_of("/?")).find('@') != rest_.npos; }
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

}  // namespace

void URL::Parse(std::string_view text) {
  *this = URL();
  UrlScanner scanner(text);
  std::string_view name = scanner.Until(":@/?");
  if (scanner.Accept("://")) {
    scheme.Set(name);
    name = scanner.Until(":@/?");
  }
  if (scanner.SeesUser()) {
    user.Set(name);
    if (scanner.Accept(":")) password.Set(scanner.Until("@"));
    scanner.Accept("@");
    name = scanner.Until(":/?");
  }
  if (name.find('@') == name.npos) host.Set(name);  // with a second '@', readers wouldn't agree on the host
  if (scanner.Accept(":")) {
    std::string_view digits = scanner.Until("/?");
    if (digits.find_first_of("0123456789") == 0) (void)Nox::ScanUnsigned(digits, port);
  }
  path.Set(scanner.Until("?"));
  query.Set(scanner.Rest());
}

std::string URL::ToString() const {
  std::string text = Nox::FormatText("%s://", scheme.Empty() ? "http" : scheme.View());
  if (!user.Empty() && !password.Empty()) {
    Nox::AppendFormat(text, "%s:%s@", user, password);
  } else if (!user.Empty()) {
    Nox::AppendFormat(text, "%s@", user);
  }
  text += host;
  if (port != 0) Nox::AppendFormat(text, ":%u", port);
  return text + PathAndQuery();
}

bool URL::IsValid() const {
  return !scheme.Empty() && !host.Empty();
}

std::uint32_t URL::DefaultPort() const {
  if (port != 0) return port;
  if (HasScheme("https")) return 443;
  return HasScheme("ftp") ? 21 : 80;
}

bool URL::HasScheme(std::string_view wanted) const {
  return Nox::EqualsIgnoreCase(scheme.Empty() ? "http" : scheme.View(), wanted);
}

std::string URL::PathAndQuery() const {
  return std::string(path).append(query);
}

std::string_view URL::FileName() const {
  const std::string_view whole = path;
  return whole.substr(whole.rfind('/') + 1);
}

void URL::FillFrom(const URL& base) {
  if (scheme.Empty()) scheme = base.scheme;
  if (!host.Empty()) return;
  user = base.user;
  password = base.password;
  host = base.host;
  port = base.port;
}

}  // namespace morvex
