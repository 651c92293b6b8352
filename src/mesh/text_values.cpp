#include "mesh/text_values.h"

#include <array>

#include "engine/number_text.h"

namespace morvex {

bool ReadFloat(const Nox::ConfigData& item, float& number) {
  return !item || item >> number;
}

bool ReadBool(const Nox::ConfigData& item, bool& truth) {
  return !item || item >> truth;
}

bool ReadCount(const Nox::ConfigData& item, std::uint32_t& count) {
  Nox::ConfigValues values = item.Values();
  return !item || NextCount(values, count);
}

bool ReadVector(const Nox::ConfigData& item, Nox::Vector3& vector) {
  std::array<float, 3> numbers;
  if (!item) return true;
  if (!(item >> std::span<float>(numbers))) return false;
  vector = {numbers[0], numbers[1], numbers[2]};
  return true;
}

bool ReadQuaternion(const Nox::ConfigData& item, Nox::Quaternion& quaternion) {
  std::array<float, 4> numbers;
  if (!item) return true;
  if (!(item >> std::span<float>(numbers))) return false;
  quaternion = {numbers[0], numbers[1], numbers[2], numbers[3]};
  return true;
}

bool ReadMatrix(const Nox::ConfigData& item, Nox::Matrix3& matrix) {
  return !item || item >> std::span<float>(matrix.m);
}

bool NextCount(Nox::ConfigValues& values, std::uint32_t& count) {
  std::string_view value;
  return values.Next(value) && Nox::ScanUnsigned(value, count) && value.empty();
}

bool IsMeshTextVersion(float version) {
  const float hundredfold = version * 100;
  return hundredfold >= 100 && hundredfold < 101;
}

}  // namespace morvex
