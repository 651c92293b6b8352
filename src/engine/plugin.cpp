#include "engine/plugin.h"

namespace Nox {
namespace {

// Never destroyed: plug-ins live until the process ends.
std::vector<Plugin*>& Registered() {
  static std::vector<Plugin*>& plugins = *new std::vector<Plugin*>;
  return plugins;
}

}  // namespace

Plugin::Plugin(std::string_view name, std::string_view id, std::string_view familyId)
    : name_(name), id_(id), familyId_(familyId) {
  Registered().push_back(this);
}

Plugin::~Plugin() {
  std::erase(Registered(), this);
}

const std::vector<Plugin*>& Plugin::All() {
  return Registered();
}

}  // namespace Nox
