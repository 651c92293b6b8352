#pragma once

#include <cstdint>
#include <string_view>

namespace QELLib {

// What the value of a tag is. The numbers are those that hosts of the library know.
enum class TagType : int32_t {
  kFloat = 0,
  kString = 1,
  kInt = 3,
  kBool = 4,
  kVector2 = 5,
  kVector3 = 6,
  kVector4 = 7,
  kVector5 = 8,
  kFloatList = 9,
  kComboBox = 10,
  kIntComboBox = 11,
  kListBox = 12,
  kDoubleString = 13,
  kKuid = 14,
  kFilePath = 15,
  kFilePathEdit = 16,
  kStringKuid = 17,
  kKuidBrowser = 18,
  kStringKuidBrowser = 19,
  kOther = 20,
};

// The type of a name as definitions write it; kOther for any other name.
TagType TagTypeOf(std::string_view name);

}  // namespace QELLib
