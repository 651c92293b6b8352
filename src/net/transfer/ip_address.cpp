#include "net/transfer/ip_address.h"

#include <string_view>

#include "engine/number_text.h"
#include "net/transfer/socket_calls.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

// The first number becomes the first byte on the wire.
std::uint32_t ReadFourNumbers(std::string_view text) {
  std::uint32_t address = 0;
  for (int i = 0; i < 4; ++i) {
    if (i > 0 && !text.starts_with('.')) return 0;
    if (i > 0) text.remove_prefix(1);
    std::uint32_t number = 0;
    if (!Nox::ScanUnsigned(text, number) || number > 255) return 0;
    address |= number << (8 * i);
  }
  return address;
}

}  // namespace

bool IsIPAddress(const std::string& name) {
  return name.find_first_not_of("0123456789.") == std::string::npos;
}

std::uint32_t NameToIPAddress(const std::string& name) {
  if (!IsIPAddress(name)) return sockets::gethostbyname(name);
  MorvexLog::Message("NameToIPAddress> we're connecting with an ip address");
  return ReadFourNumbers(name);
}

}  // namespace morvex
