#include "mesh/mesh_input.h"

namespace morvex {

bool MeshInput::Fail(MeshResult result) {
  if (Ok()) result_ = result;
  return in_.Fail();
}

std::uint64_t MeshInput::OpenWrapper(MeshFormat::Tag kind) {
  Tag(MeshFormat::kWrapper);
  const std::uint32_t size = in_.U32();
  const std::uint64_t end = in_.Position() + std::uint64_t{size};
  Tag(kind);
  return end;
}

bool MeshInput::Tag(MeshFormat::Tag tag) {
  return in_.Text(tag.size()) == tag || Fail();
}

bool MeshInput::NextIs(MeshFormat::Tag tag) const {
  Nox::ByteReader ahead = in_;
  return ahead.Text(tag.size()) == tag;
}

bool MeshInput::Open(MeshFormat::Tag tag, std::uint32_t firstVersion, std::uint32_t lastVersion,
                     Chunk& chunk) {
  if (!Tag(tag)) return false;
  const std::uint32_t size = in_.U32();
  chunk.end = in_.Position() + std::uint64_t{size};
  chunk.version = in_.U32();
  if (!Ok()) return false;
  return (chunk.version >= firstVersion && chunk.version <= lastVersion) || Fail(RES_FILE_VERSION_ERROR);
}

bool MeshInput::SkipTo(const Chunk& chunk) {
  if (!Ok() || chunk.end < in_.Position()) return Fail();
  return in_.SeekTo(chunk.end);
}

}  // namespace morvex
