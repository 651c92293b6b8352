#include "host/mesh_file.h"

#include <optional>

#include "engine/options.h"
#include "engine/path.h"
#include "engine/read_file.h"
#include "engine/render_kernel.h"
#include "mesh/mesh_load.h"
#include "mesh/plugins.h"
#include "mesh/read_indexed_mesh.h"
#include "mesh/read_lod_mesh.h"

namespace morvex::host {

namespace Path = Nox::Path;

namespace {

// The longer endings first.
constexpr std::string_view kKinds[] = {"lm.txt", "imtxt", "lm", "im"};

std::string_view KindOf(const std::string& path) {
  for (const std::string_view kind : kKinds) {
    if (Path::IsExt(path, kind)) return kind;
  }
  return {};
}

// The levels of a text lie in its folder.
class FolderSource final : public MeshFileSource {
 public:
  explicit FolderSource(std::string folder) : folder_(std::move(folder)) {}

  std::optional<Nox::OwnedBytes> ReadMeshFile(std::string_view name) override {
    const std::string path = Path::AddPath(folder_, name);
    if (!Path::IsBelow(folder_, path)) return std::nullopt;
    return Nox::ReadWholeFile(path);
  }

 private:
  const std::string folder_;
};

const Nox::RenderKernel& Kernel() {
  static const Nox::RenderKernel kernel = [] {
    Nox::RenderKernel made;
    made.Init(Nox::Options("-hidewindow"), &NoxGetPlugins);
    return made;
  }();
  return kernel;
}

}  // namespace

MeshFile LoadMeshFile(const std::string& path) {
  MeshFile mesh;
  mesh.kind = KindOf(path);
  if (mesh.kind.empty()) return mesh;
  const std::optional<Nox::OwnedBytes> bytes = Nox::ReadWholeFile(path);
  if (!bytes) return mesh;

  MeshLoadContext context;
  context.materials = Kernel().GetMaterialManager();
  context.ownerName = "host";
  context.resourceName = Path::GetFileName(path);
  const std::string_view name = Path::GetFileName(path);
  if (mesh.kind.starts_with("lm")) {
    auto lod = std::make_unique<MorvexIndexedMeshLODDefinition>();
    FolderSource files(Path::PrevDir(path));
    mesh.result = mesh.kind == "lm" ? ReadLodMesh(*lod, *bytes, name, context)
                                    : ReadLodMeshText(*lod, *bytes, name, context, files);
    mesh.lod = lod.get();
    mesh.definition = std::move(lod);
  } else {
    mesh.definition = std::make_unique<MorvexIndexedMeshDefinition>();
    mesh.result = mesh.kind == "im" ? ReadIndexedMesh(*mesh.definition, *bytes, name, context)
                                    : ReadIndexedMeshText(*mesh.definition, *bytes, name, context);
  }
  if (mesh.result != RES_SUCCESS) {
    mesh.definition.reset();
    mesh.lod = nullptr;
  }
  return mesh;
}

}  // namespace morvex::host
