#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <vector>

#include "engine/material_manager.h"
#include "mesh/read_indexed_mesh.h"
#include "mesh/read_lod_mesh.h"
#include "mesh/write_mesh.h"

using namespace morvex;

namespace {

const Nox::MaterialManager kMaterials;

// One text for all levels.
class OneFile final : public MeshFileSource {
 public:
  explicit OneFile(std::string_view text) : text_(text) {}
  std::optional<Nox::OwnedBytes> ReadMeshFile(std::string_view) override {
    return Nox::OwnedBytes::Copy({reinterpret_cast<const std::uint8_t*>(text_.data()), text_.size()});
  }

 private:
  std::string_view text_;
};

std::span<const std::uint8_t> Bytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

// The text of a mesh of levels up to the first NUL, and behind it that of every level. What they give can be
// written and reads back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view all(reinterpret_cast<const char*>(data), size);
  const std::size_t end = all.find('\0');
  const std::string_view level = end == all.npos ? all : all.substr(end + 1);

  MeshLoadContext context;
  context.materials = &kMaterials;
  context.resourceName = "a/fuzz.lm.txt";
  context.display.skinsMeshes = true;
  MorvexIndexedMeshDefinition single;
  static_cast<void>(ReadIndexedMeshText(single, Bytes(level), "fuzz.imtxt", context));

  OneFile files(level);
  MorvexIndexedMeshLODDefinition mesh;
  if (ReadLodMeshText(mesh, Bytes(all.substr(0, end)), "fuzz.lm.txt", context, files) != RES_SUCCESS)
    return 0;
  std::vector<std::uint8_t> written;
  if (SaveLodMesh(mesh, written) != RES_SUCCESS) std::abort();
  MorvexIndexedMeshLODDefinition again;
  if (ReadLodMesh(again, written, "fuzz.lm", context) != RES_SUCCESS) std::abort();
  return 0;
}
