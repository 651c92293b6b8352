#include "engine/rand.h"

#include <sys/random.h>
#include <unistd.h>

#include <bit>
#include <chrono>

namespace Nox {

Rand& Rand::Global() {
  static Rand generator;
  return generator;
}

void Rand::Randomise() {
  const std::lock_guard lock(mutex_);
  Seed();
}

void Rand::Seed() {
  seeded_ = true;
  const auto wanted = static_cast<ssize_t>(sizeof state_);
  if (getrandom(state_.data(), sizeof state_, GRND_NONBLOCK) == wanted) return;
  // Too early in the life of the machine for the system's own: time and process number tell runs apart.
  const auto now = std::chrono::high_resolution_clock::now().time_since_epoch().count();
  state_ = {static_cast<std::uint64_t>(now), static_cast<std::uint64_t>(getpid()), 0x9E3779B97F4A7C15, 1};
  for (int i = 0; i < 32; ++i)
    Step();
}

// xoshiro256**.
std::uint64_t Rand::Step() {
  const std::uint64_t result = std::rotl(state_[1] * 5, 7) * 9;
  const std::uint64_t shifted = state_[1] << 17;
  state_[2] ^= state_[0];
  state_[3] ^= state_[1];
  state_[1] ^= state_[2];
  state_[0] ^= state_[3];
  state_[2] ^= shifted;
  state_[3] = std::rotl(state_[3], 45);
  return result;
}

std::uint64_t Rand::Next() {
  const std::lock_guard lock(mutex_);
  if (!seeded_) Seed();
  return Step();
}

std::int32_t Rand::NextInt() {
  return static_cast<std::int32_t>(Next() >> 32);
}

std::int32_t Rand::NextInt(std::int32_t low, std::int32_t high) {
  if (high <= low) return low;
  const auto range = static_cast<std::uint64_t>(std::int64_t{high} - low) + 1;
  return static_cast<std::int32_t>(low + static_cast<std::int64_t>(Next() % range));
}

}  // namespace Nox
