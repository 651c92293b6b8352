#include "engine/vector_math.h"

#include <cmath>

namespace Nox {

// Divides by the largest component, so that no precision is lost near half turns.
Quaternion ToQuaternion(const Matrix3& rotation) {
  const auto& m = rotation.m;
  const float trace = m[0] + m[4] + m[8];
  if (trace > 0) {
    const float s = std::sqrt(trace + 1) * 2;
    return {(m[7] - m[5]) / s, (m[2] - m[6]) / s, (m[3] - m[1]) / s, s / 4};
  }
  if (m[0] > m[4] && m[0] > m[8]) {
    const float s = std::sqrt(1 + m[0] - m[4] - m[8]) * 2;
    return {s / 4, (m[1] + m[3]) / s, (m[2] + m[6]) / s, (m[7] - m[5]) / s};
  }
  if (m[4] > m[8]) {
    const float s = std::sqrt(1 + m[4] - m[0] - m[8]) * 2;
    return {(m[1] + m[3]) / s, s / 4, (m[5] + m[7]) / s, (m[2] - m[6]) / s};
  }
  const float s = std::sqrt(1 + m[8] - m[0] - m[4]) * 2;
  return {(m[2] + m[6]) / s, (m[5] + m[7]) / s, s / 4, (m[3] - m[1]) / s};
}

Matrix3 ToMatrix(const Quaternion& rotation) {
  const auto [x, y, z, w] = rotation;
  return {{1 - 2 * (y * y + z * z), 2 * (x * y - z * w), 2 * (x * z + y * w),  //
           2 * (x * y + z * w), 1 - 2 * (x * x + z * z), 2 * (y * z - x * w),  //
           2 * (x * z - y * w), 2 * (y * z + x * w), 1 - 2 * (x * x + y * y)}};
}

}  // namespace Nox
