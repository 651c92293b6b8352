#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/resource.h"
#include "mesh/indexed_mesh_definition.h"
#include "mesh/mesh_load.h"
#include "mesh/mesh_result.h"

namespace morvex {

// A mesh file of a resource database. How it is loaded may be set before it is locked for the first time. Owns
// the definition that the load makes; why a load failed is told to the log alone.
class MorvexGeometryBaseResource : public Nox::Resource {
 public:
  using Resource::Resource;

  // Without a manager the mesh gets null materials. Not owned.
  void SetMaterials(const Nox::MaterialManager* materials) { materials_ = materials; }
  // Whether a material that can't be had by its name may be replaced by the nameless one of its type.
  void AllowMaterialFallback(bool allowed) { allowMaterialFallback_ = allowed; }

  // Null unless loaded.
  const MorvexIndexedMeshDefinition* GetDefinition() const { return definition_.get(); }
  // The names that the manager refused in the load.
  const std::vector<std::string>& MissingMaterials() const { return missingMaterials_; }
  // Whether the mesh, once loaded, can be put into a scene: one that bones move needs a skeleton.
  bool CanMakeInstance() const;

 protected:
  using DefinitionPtr = std::unique_ptr<MorvexIndexedMeshDefinition>;

  [[nodiscard]] int Load() override;
  // Hands the textures out to the materials.
  void LoadComplete() override;

  // Makes the definition and fills it from the file. One of a load that failed is dropped.
  [[nodiscard]] virtual MeshResult Read(const MeshLoadContext& context, DefinitionPtr& definition) = 0;
  virtual bool IsMovedByBones(const MorvexIndexedMeshDefinition& definition) const = 0;

 private:
  void LogFailure(MeshResult result) const;

  const Nox::MaterialManager* materials_ = nullptr;
  bool allowMaterialFallback_ = false;
  DefinitionPtr definition_;
  std::vector<std::string> missingMaterials_;
};

// An ".im".
class MorvexIndexedMeshResource final : public MorvexGeometryBaseResource {
 public:
  using MorvexGeometryBaseResource::MorvexGeometryBaseResource;

 protected:
  MeshResult Read(const MeshLoadContext& context, DefinitionPtr& definition) override;
  bool IsMovedByBones(const MorvexIndexedMeshDefinition& definition) const override;
};

// An ".lm" or an ".lm.txt".
class MorvexIndexedMeshLODResource final : public MorvexGeometryBaseResource {
 public:
  using MorvexGeometryBaseResource::MorvexGeometryBaseResource;

 protected:
  MeshResult Read(const MeshLoadContext& context, DefinitionPtr& definition) override;
  bool IsMovedByBones(const MorvexIndexedMeshDefinition& definition) const override;
};

}  // namespace morvex
