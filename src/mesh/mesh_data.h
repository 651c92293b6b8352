#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "engine/pstring.h"
#include "engine/reference.h"
#include "engine/vector_math.h"
#include "mesh/indexed_mesh_definition.h"
#include "mesh/lod_mesh_definition.h"

namespace Nox {
class MaterialManager;
class Resource;
class ResourceDatabase;
}  // namespace Nox

namespace morvex {

class MeshReporter;
class MorvexGeometryBaseResource;

struct MeshBone {
  Nox::PString name;
  Nox::Vector3 position;
};

// An animation that was added to a mesh.
struct MeshAnimation {
  std::string name;
  float seconds = 0;
};

// A loaded mesh, for whoever judges or shows it: which attachment points and bones it has, how many faces,
// whether its textures are there, which animations move it. Must not outlive the database it is loaded from.
class MeshData {
 public:
  // Without a manager the mesh gets null materials. Neither of the two is owned.
  MeshData(Nox::ResourceDatabase& database, const Nox::MaterialManager* materials);
  MeshData(const MeshData&) = delete;
  MeshData& operator=(const MeshData&) = delete;
  virtual ~MeshData();

  // Loads a file of the database, and looks for its textures. False if there is no such mesh; what is missing
  // of a mesh that loads is only told. `reporter` is kept for AddAnimation; with none, nobody is told anything.
  virtual bool Load(std::string_view name, MeshReporter* reporter);
  // Of the mesh, or of its last level that is reached by threshold.
  virtual uint64_t GetFaceCount() const;
  virtual std::string_view GetName() const { return "some name"; }  // the same for every mesh
  virtual Nox::Vector3 GetPosition() const;
  virtual size_t GetAttachmentCount() const { return attachments_.size(); }
  virtual size_t GetBoneCount() const { return bones_.size(); }
  // By the last component of their names: "a.front" for a point that the file calls "x/y/a.front".
  virtual const std::vector<MeshAttachment>& GetAttachments() const { return attachments_; }
  // Each behind its parent.
  virtual const std::vector<MeshBone>& GetBones() const { return bones_; }
  virtual const std::vector<MeshAnimation>& GetAnimations() const { return animations_; }
  // Null unless loaded.
  virtual const MorvexIndexedMeshDefinition* GetDefinition() const;

  bool HasAttachment(std::string_view name) const { return attachmentNames_.contains(name); }
  // Has a file of the database move the mesh. False, and reported, if that isn't possible.
  bool AddAnimation(std::string_view name);

 private:
  bool LoadResource(const Nox::Ref<Nox::Resource>& found);
  void CopyAttachments();
  void CopyBones();

  Nox::ResourceDatabase& database_;
  const Nox::MaterialManager* const materials_;
  MeshReporter* reporter_ = nullptr;
  Nox::Ref<MorvexGeometryBaseResource> resource_;  // of a mesh that has loaded
  std::vector<MeshAttachment> attachments_;
  std::unordered_set<std::string_view> attachmentNames_;  // a PString's text stays
  std::vector<MeshBone> bones_;
  std::vector<MeshAnimation> animations_;
};

// A mesh with levels of detail.
class LODMeshData final : public MeshData {
 public:
  using MeshData::MeshData;
  // Null also for a mesh without levels of detail.
  const MorvexIndexedMeshLODDefinition* GetDefinition() const override;
};

}  // namespace morvex
