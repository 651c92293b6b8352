#include "mesh/mesh_resource.h"

#include <optional>
#include <string_view>

#include "engine/path.h"
#include "engine/read_file.h"
#include "engine/resource_database.h"
#include "mesh/lod_mesh_definition.h"
#include "mesh/read_indexed_mesh.h"
#include "mesh/read_lod_mesh.h"
#include "tagdata/morvex_log.h"

namespace morvex {
namespace {

// Files that a text of levels names: their names count from the text's folder.
class FilesBeside final : public MeshFileSource {
 public:
  explicit FilesBeside(const Nox::Resource& text) : text_(text) {}
  std::optional<Nox::OwnedBytes> ReadMeshFile(std::string_view name) override {
    return Nox::ReadWholeFile(text_.Database().FileOf(text_.ConvertResourceName(name)));
  }

 private:
  const Nox::Resource& text_;
};

}  // namespace

int MorvexGeometryBaseResource::Load() {
  missingMaterials_.clear();
  MeshLoadContext context;
  context.materials = materials_;
  context.ownerName = GetOwnerName().Text();
  context.resourceName = GetName();
  context.allowMaterialFallback = allowMaterialFallback_;
  context.missingMaterials = &missingMaterials_;

  DefinitionPtr definition;
  const MeshResult result = Read(context, definition);
  if (result != RES_SUCCESS) {
    LogFailure(result);
    return RES_UNKNOWN;
  }
  definition_ = std::move(definition);
  return RES_SUCCESS;
}

void MorvexGeometryBaseResource::LoadComplete() {
  for (const auto& [material, texture] : definition_->pendingTextures) {
    const auto result = material->SetTexture(texture.slot, Database(), texture.name, texture.weight);
    if (result != Nox::SetTextureResult::kTaken) definition_->failedTextures.push_back(texture);
  }
  definition_->pendingTextures.clear();
}

bool MorvexGeometryBaseResource::CanMakeInstance() const {
  return definition_ != nullptr && (!IsMovedByBones(*definition_) || !definition_->skeleton.Empty());
}

void MorvexGeometryBaseResource::LogFailure(MeshResult result) const {
  MorvexLog::Message("MorvexGeometryBaseResource::Load> '%s': %s", GetName(), MeshResultMessage(result));
  for (const std::string& name : missingMaterials_)
    MorvexLog::Message("MorvexGeometryBaseResource::Load> No material '%s'", name);
}

MeshResult MorvexIndexedMeshResource::Read(const MeshLoadContext& context, DefinitionPtr& definition) {
  const std::optional<Nox::OwnedBytes> file = Nox::ReadWholeFile(File());
  if (!file) return RES_FILE_OPEN_ERROR;
  definition = std::make_unique<MorvexIndexedMeshDefinition>();
  return ReadIndexedMesh(*definition, *file, GetName(), context);
}

bool MorvexIndexedMeshResource::IsMovedByBones(const MorvexIndexedMeshDefinition& definition) const {
  return !definition.influences.empty() && definition.MainLevel().maxMatricesPerChunk > 0;
}

MeshResult MorvexIndexedMeshLODResource::Read(const MeshLoadContext& context, DefinitionPtr& definition) {
  const std::optional<Nox::OwnedBytes> file = Nox::ReadWholeFile(File());
  if (!file) return RES_FILE_OPEN_ERROR;
  auto levels = std::make_unique<MorvexIndexedMeshLODDefinition>();
  MorvexIndexedMeshLODDefinition& mesh = *levels;
  definition = std::move(levels);
  if (!Nox::Path::IsExt(GetName(), "lm.txt")) return ReadLodMesh(mesh, *file, GetName(), context);
  FilesBeside files(*this);
  return ReadLodMeshText(mesh, *file, GetName(), context, files);
}

bool MorvexIndexedMeshLODResource::IsMovedByBones(const MorvexIndexedMeshDefinition& definition) const {
  return !definition.influences.empty();
}

}  // namespace morvex
