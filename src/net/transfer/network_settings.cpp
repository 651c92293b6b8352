#include "net/transfer/network_settings.h"

#include <mutex>

namespace morvex {
namespace {

std::mutex lock;  // of settings
NetworkSettings settings;

}  // namespace

NetworkSettings GetNetworkSettings() {
  const std::lock_guard guard(lock);
  return settings;
}

void SetNetworkSettings(const NetworkSettings& wanted) {
  const std::lock_guard guard(lock);
  settings = wanted;
}

}  // namespace morvex
