#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace morvex {

// The records that the programs of the family keep of themselves, in the registry of product_registry.h. One
// entry is open at a time, in the whole process; one thread uses all this. A missing family, entry or value
// is no error: it reads as the empty text, 0 or false. Writers answer false if no entry is open or the
// registry can't be written.

inline constexpr size_t kMaxProductText = 259;  // a longer value is cut when it is read
inline constexpr std::string_view kMorvexClass = "MorvexClassic";

// Lists the entries of a class in a family, for the functions that take an index, and returns their number.
size_t ProductEnumerate(std::string_view productClass, std::string_view familyKey);
// Opens the entry whose program is the list's `index`-th. False past the end.
bool ProductOpenIndexed(size_t index);
// Opens the entry of a program in the class and family last enumerated ("MorvexClassic" at first), or makes
// one under the lowest free number. Texts compare without regard to case. False if it can't be made.
bool ProductOpen(std::string_view exePath);
void ProductClose();

std::string ProductGetClass();
std::string ProductGetExePath();
int32_t ProductGetBuild();
std::string ProductGetVersion();
std::string ProductGetName();
std::string ProductGetInstallPath();
std::string ProductGetLanguage();
bool ProductGetAutoSave();
bool ProductGetDontShowError();

bool ProductSetClass(std::string_view value);
bool ProductSetExePath(std::string_view value);
bool ProductSetBuild(int32_t value);
bool ProductSetVersion(std::string_view value);
bool ProductSetName(std::string_view value);
bool ProductSetInstallPath(std::string_view value);
bool ProductSetLanguage(std::string_view value);
bool ProductSetAutoSave(bool value);
bool ProductSetAutoSaveDelay(int32_t value);
bool ProductSetDontShowError(bool value);

// Opens or makes the entry of the running program and fills in where it is.
bool ProductRegisterSelf(std::string_view productClass);
// Removes the entry of the list's `index`-th program.
bool ProductDelete(size_t index);
// Removes the listed entries whose program no longer exists.
bool ProductPrune();
// The index of the entry of "MorvexClassic" with the highest build of that language, the first if there are
// several. Enumerates.
std::optional<size_t> ProductBestForLanguage(std::string_view language);

}  // namespace morvex
