#include "frontend/settings/product_settings.h"

#include <filesystem>
#include <vector>

#include "engine/file.h"
#include "engine/number_text.h"
#include "engine/process.h"
#include "engine/text.h"
#include "frontend/settings/product_registry.h"

namespace morvex {
namespace {

// The open entry is told by its number: the registry is read again before each change, as another program
// may have written it meanwhile.
struct State {
  std::string productClass{kMorvexClass};
  std::string family{kMorvexClass};
  std::vector<std::string> listed;  // paths of programs
  std::string number;               // of the open entry; empty if none is
  TagContainer entry;               // its values when it was opened or last changed
};

State& Current() {
  static State state;
  return state;
}

std::string TextOf(const TagContainer& entry, std::string_view name) {
  return entry.GetText(RegistryTag(name)).substr(0, kMaxProductText);
}

TagContainer FamilyOf(const TagContainer& registry) {
  return registry.GetContainer(RegistryTag(Current().family));
}

bool IsOfClass(const TagContainer& entry) {
  return Nox::EqualsIgnoreCase(TextOf(entry, "ProductClass"), Current().productClass);
}

bool IsOfProgram(const TagContainer& entry, std::string_view exePath) {
  return IsOfClass(entry) &&
         Nox::EqualsIgnoreCase(TextOf(entry, "ExePath"), exePath.substr(0, kMaxProductText));
}

// The number of a program's entry; empty if it has none.
std::string FindProgram(const TagContainer& family, std::string_view exePath) {
  for (uint32_t i = 0; i < family.GetCount(); ++i)
    if (IsOfProgram(family.GetContainerAt(i), exePath)) return family.GetName(i).Text();
  return "";
}

std::string LowestFreeNumber(const TagContainer& family) {
  int number = 0;
  while (family.HasTag(Nox::PString(std::to_string(number))))
    ++number;
  return std::to_string(number);
}

bool OpenExisting(const TagContainer& family, std::string_view exePath) {
  State& state = Current();
  state.number = FindProgram(family, exePath);
  state.entry = family.GetContainer(Nox::PString(state.number));
  return !state.number.empty();
}

// Changes values of one entry in the registry as it is now.
template <typename Change>
bool ChangeEntry(const std::string& number, const Change& change) {
  TagContainer registry = LoadProductRegistry();
  TagContainer family = RegistryContainer(registry, Current().family);
  TagContainer entry = RegistryContainer(family, number);
  change(entry);
  if (!SaveProductRegistry(registry)) return false;
  Current().entry = entry;
  return true;
}

std::string Get(std::string_view name) {
  return TextOf(Current().entry, name);
}

bool Set(std::string_view name, std::string_view value) {
  const State& state = Current();
  if (state.number.empty()) return false;
  return ChangeEntry(state.number, [&](TagContainer& entry) { entry.SetString(RegistryTag(name), value); });
}

bool GetBool(std::string_view name) {
  return Nox::EqualsIgnoreCase(Get(name), "true");
}
bool SetBool(std::string_view name, bool value) {
  return Set(name, value ? "true" : "false");
}
bool SetNumber(std::string_view name, int32_t value) {
  return Set(name, std::to_string(value));
}

// Removes those of the listed programs that `goes` names; the registry is written if any entry went.
template <typename Goes>
bool RemoveListed(const Goes& goes) {
  TagContainer registry = LoadProductRegistry();
  TagContainer family = FamilyOf(registry);
  bool changed = false;
  for (const std::string& exePath : Current().listed) {
    const std::string number = goes(exePath) ? FindProgram(family, exePath) : "";
    if (number.empty()) continue;
    family.Remove(Nox::PString(number));
    changed = true;
  }
  return !changed || SaveProductRegistry(registry);
}

}  // namespace

size_t ProductEnumerate(std::string_view productClass, std::string_view familyKey) {
  State& state = Current();
  state.productClass = productClass;
  state.family = familyKey;
  state.listed.clear();
  const TagContainer family = FamilyOf(LoadProductRegistry());
  for (uint32_t i = 0; i < family.GetCount(); ++i) {
    const TagContainer entry = family.GetContainerAt(i);
    if (IsOfClass(entry)) state.listed.push_back(TextOf(entry, "ExePath"));
  }
  return state.listed.size();
}

bool ProductOpenIndexed(size_t index) {
  const State& state = Current();
  return index < state.listed.size() && OpenExisting(FamilyOf(LoadProductRegistry()), state.listed[index]);
}

bool ProductOpen(std::string_view exePath) {
  const TagContainer family = FamilyOf(LoadProductRegistry());
  if (OpenExisting(family, exePath)) return true;
  const std::string number = LowestFreeNumber(family);
  const bool made = ChangeEntry(number, [&](TagContainer& entry) {
    entry.SetString(RegistryTag("ProductClass"), Current().productClass);
    entry.SetString(RegistryTag("ExePath"), exePath);
  });
  if (made) Current().number = number;
  return made;
}

void ProductClose() {
  Current().number.clear();
  Current().entry.Clear();
}

std::string ProductGetClass() {
  return Get("ProductClass");
}
std::string ProductGetExePath() {
  return Get("ExePath");
}
int32_t ProductGetBuild() {
  return Nox::ReadInt(Get("ProductBuild"));
}
std::string ProductGetVersion() {
  return Get("ProductVersion");
}
std::string ProductGetName() {
  return Get("ProductName");
}
std::string ProductGetInstallPath() {
  return Get("ProductInstallPath");
}
std::string ProductGetLanguage() {
  return Get("ProductLanguage");
}
bool ProductGetAutoSave() {
  return GetBool("AutoSave");
}
bool ProductGetDontShowError() {
  return GetBool("DontShowError");
}

bool ProductSetClass(std::string_view value) {
  return Set("ProductClass", value);
}
bool ProductSetExePath(std::string_view value) {
  return Set("ExePath", value);
}
bool ProductSetBuild(int32_t value) {
  return SetNumber("ProductBuild", value);
}
bool ProductSetVersion(std::string_view value) {
  return Set("ProductVersion", value);
}
bool ProductSetName(std::string_view value) {
  return Set("ProductName", value);
}
bool ProductSetInstallPath(std::string_view value) {
  return Set("ProductInstallPath", value);
}
bool ProductSetLanguage(std::string_view value) {
  return Set("ProductLanguage", value);
}
bool ProductSetAutoSave(bool value) {
  return SetBool("AutoSave", value);
}
bool ProductSetAutoSaveDelay(int32_t value) {
  return SetNumber("AutoSaveDelay", value);
}
bool ProductSetDontShowError(bool value) {
  return SetBool("DontShowError", value);
}

bool ProductRegisterSelf(std::string_view productClass) {
  ProductEnumerate(productClass, productClass);
  std::error_code error;
  const std::string folder = std::filesystem::current_path(error).string();
  return ProductOpen(Nox::ExecutablePath()) && ProductSetInstallPath(folder);
}

bool ProductDelete(size_t index) {
  const std::vector<std::string>& listed = Current().listed;
  if (index >= listed.size()) return false;
  const std::string chosen = listed[index];
  return RemoveListed([&](const std::string& exePath) { return exePath == chosen; });
}

bool ProductPrune() {
  return RemoveListed([](const std::string& exePath) { return !Nox::File::Exists(exePath); });
}

std::optional<size_t> ProductBestForLanguage(std::string_view language) {
  std::optional<size_t> best;
  int32_t bestBuild = 0;
  const size_t count = ProductEnumerate(kMorvexClass, kMorvexClass);
  for (size_t i = 0; i < count; ++i) {
    if (!ProductOpenIndexed(i)) continue;
    const int32_t build = ProductGetBuild();
    if (Nox::EqualsIgnoreCase(ProductGetLanguage(), language) && (!best || build > bestBuild)) {
      best = i;
      bestBuild = build;
    }
  }
  ProductClose();
  return best;
}

}  // namespace morvex
