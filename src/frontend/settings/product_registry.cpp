#include "frontend/settings/product_registry.h"

#include <cstdlib>

#include "engine/file.h"
#include "engine/path.h"

namespace morvex {
namespace {

constexpr std::string_view kFormat = "txt";

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

std::string ProductRegistryPath() {
  std::string path = Environment("MORVEX_PRODUCTS");
  if (!path.empty()) return path;
  std::string folder = Environment("XDG_CONFIG_HOME");
  if (folder.empty()) {
    const std::string home = Environment("HOME");
    if (home.empty()) return "";
    folder = Nox::Path::AddPath(home, ".config");
  }
  return Nox::Path::AddPath(folder, "morvex/products.txt");
}

TagContainer LoadProductRegistry() {
  TagContainer registry;
  const std::string path = ProductRegistryPath();
  if (path.empty() || !registry.Load(Nox::PString(), path, kFormat)) registry.Clear();
  return registry;
}

bool SaveProductRegistry(const TagContainer& registry) {
  const std::string path = ProductRegistryPath();
  if (path.empty()) return false;
  Nox::File::Md(Nox::Path::PrevDir(path));
  return registry.Save(Nox::PString(), path, kFormat);
}

// The reader of text soups lowers its keys.
Nox::PString RegistryTag(std::string_view name) {
  return Nox::PString(name).ToLower();
}

TagContainer RegistryContainer(TagContainer& parent, std::string_view name) {
  const Nox::PString tag = RegistryTag(name);
  TagContainer child = parent.GetContainer(tag);
  if (child.IsEmpty()) parent.SetContainer(tag, child);
  return child;
}

}  // namespace morvex
