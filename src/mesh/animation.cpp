// An animation, a ".kin":
//
//   "JIRF", u32 size of what follows
//   "ANIM", u32 version 100
//   f32 length in seconds: finite and not below 0
//   u32 count of bones, then for each its name, a padded string
//
// Nothing stands between the last name and the end that the size tells. What follows that is not the
// animation's.

#include "mesh/animation.h"

#include <cmath>

#include "engine/byte_reader.h"
#include "engine/mesh_file_support.h"
#include "engine/read_file.h"
#include "mesh/mesh_format.h"

namespace morvex {
namespace {

constexpr MeshFormat::Tag kTag = "ANIM";

}  // namespace

std::optional<Animation> ParseAnimation(std::span<const std::uint8_t> bytes) {
  Nox::ByteReader wrapper(bytes);
  if (wrapper.Text(MeshFormat::kWrapper.size()) != MeshFormat::kWrapper) return std::nullopt;
  const std::uint32_t size = wrapper.U32();
  Nox::ByteReader in(wrapper.Bytes(size));
  if (in.Text(kTag.size()) != kTag || in.U32() != MeshFormat::kVersion) return std::nullopt;

  Animation animation;
  animation.seconds = in.F32();
  for (std::uint32_t left = in.U32(); left > 0 && !in.Failed(); --left)
    animation.bones.emplace_back(Nox::MeshFileSupport::ReadPaddedString(in));
  const bool isWhole = !wrapper.Failed() && !in.Failed() && in.AtEnd();
  if (!isWhole || !std::isfinite(animation.seconds) || animation.seconds < 0) return std::nullopt;
  return animation;
}

std::optional<Animation> ReadAnimation(Nox::LocationView file) {
  const std::optional<Nox::OwnedBytes> bytes = Nox::ReadWholeFile(file);
  return bytes ? ParseAnimation(*bytes) : std::nullopt;
}

}  // namespace morvex
