#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/location.h"

namespace morvex {

// What is known of a movement of bones.
struct Animation {
  float seconds = 0;
  std::vector<std::string> bones;  // those that it moves
};

// None for bytes that are no animation.
std::optional<Animation> ParseAnimation(std::span<const std::uint8_t> bytes);
// None also for a file that can't be read.
std::optional<Animation> ReadAnimation(Nox::LocationView file);

}  // namespace morvex
