#pragma once

#include <array>
#include <type_traits>

namespace Nox {

// The three shapes of space as files hold them: floats without gaps, so arrays of them are copied whole.
// Any float may stand in them, also infinite ones and those that are no number.
struct Vector3 {
  float x = 0, y = 0, z = 0;
  bool operator==(const Vector3&) const = default;
};

struct Quaternion {
  float x = 0, y = 0, z = 0, w = 1;
  bool operator==(const Quaternion&) const = default;
};

// A rotation, row by row: a column vector is multiplied from the right.
struct Matrix3 {
  std::array<float, 9> m{1, 0, 0, 0, 1, 0, 0, 0, 1};
  bool operator==(const Matrix3&) const = default;
};

static_assert(sizeof(Vector3) == 12 && sizeof(Quaternion) == 16 && sizeof(Matrix3) == 36);
static_assert(std::is_trivially_copyable_v<Matrix3>);

// Of a rotation; what comes of another matrix means nothing.
Quaternion ToQuaternion(const Matrix3& rotation);
// Of a quaternion of length 1.
Matrix3 ToMatrix(const Quaternion& rotation);

}  // namespace Nox
