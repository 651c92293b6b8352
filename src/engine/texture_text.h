#pragma once

#include <optional>
#include <string>

#include "engine/location.h"

namespace Nox {

// What a ".texture.txt" says: the files of the image and of its alpha channel, relative to its own folder.
// Empty where nothing is said.
//
//   Primary=name of the image
//   Alpha=name of an image
struct TextureText {
  std::string primary;
  std::string alpha;
};

// A file that can't be read says nothing. Of several lines for one of them the last counts; a line is read
// up to 512 bytes, and goes on as a line of its own.
[[nodiscard]] TextureText ReadTextureText(LocationView file);
// What the first line for the image says; none if there is no such line. A mesh's textures are looked for by it.
[[nodiscard]] std::optional<std::string> ReadPrimaryImage(LocationView file);

}  // namespace Nox
