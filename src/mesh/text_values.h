#pragma once

#include <cstdint>

#include "engine/config_parser.h"
#include "engine/vector_math.h"

// The values of items in the text form of a mesh. An item that isn't there leaves the target as it was and is
// fine; an item with other values than these is not, and gives false.
namespace morvex {

bool ReadFloat(const Nox::ConfigData& item, float& number);
bool ReadBool(const Nox::ConfigData& item, bool& truth);
bool ReadCount(const Nox::ConfigData& item, std::uint32_t& count);
bool ReadVector(const Nox::ConfigData& item, Nox::Vector3& vector);
bool ReadQuaternion(const Nox::ConfigData& item, Nox::Quaternion& quaternion);
bool ReadMatrix(const Nox::ConfigData& item, Nox::Matrix3& matrix);

// The next value, which must be there.
bool NextCount(Nox::ConfigValues& values, std::uint32_t& count);

// Whether a text of this version can be read: 1.0, and 1.00 followed by anything.
bool IsMeshTextVersion(float version);

}  // namespace morvex
