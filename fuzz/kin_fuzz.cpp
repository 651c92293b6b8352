#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "mesh/animation.h"

// An animation, or none: one that is read has a length, and bones whose names stand in the bytes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::optional<morvex::Animation> animation = morvex::ParseAnimation({data, size});
  if (!animation) return 0;
  size_t read = 0;
  for (const std::string& bone : animation->bones)
    read += 4 + bone.size();
  if (read > size || !std::isfinite(animation->seconds) || animation->seconds < 0) std::abort();
  return 0;
}
