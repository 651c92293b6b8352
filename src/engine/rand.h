#pragma once

#include <array>
#include <cstdint>
#include <mutex>

namespace Nox {

// A generator of random numbers for names and identities, not for secrets. Seeds itself from the system on
// first use. Safe to share between threads.
class Rand {
 public:
  // The one generator of the program.
  static Rand& Global();

  // Seeds anew.
  void Randomise();
  // Any number of 32 bits.
  std::int32_t NextInt();
  // From low to high, both included; low if they are the wrong way round.
  std::int32_t NextInt(std::int32_t low, std::int32_t high);

 private:
  std::uint64_t Next();
  // Under the mutex.
  void Seed();
  std::uint64_t Step();

  std::mutex mutex_;
  bool seeded_ = false;
  std::array<std::uint64_t, 4> state_{};
};

}  // namespace Nox
