#pragma once

#include <cstdint>

namespace Nox {

// Seconds since the start of 1970, by the wall clock.
[[nodiscard]] std::uint64_t TimeStamp();

void Delay(unsigned milliseconds);

}  // namespace Nox
