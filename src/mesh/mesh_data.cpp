#include "mesh/mesh_data.h"

#include <algorithm>
#include <memory>
#include <optional>

#include "engine/file.h"
#include "engine/path.h"
#include "engine/resource_database.h"
#include "mesh/animation.h"
#include "mesh/mesh_reporter.h"
#include "mesh/mesh_resource.h"
#include "mesh/mesh_textures.h"

namespace morvex {
namespace {

std::string_view LastComponent(std::string_view name) {
  return name.substr(name.rfind('/') + 1);
}

// One that moves no bones fits every mesh.
bool Fits(const Animation& animation, const Skeleton& skeleton) {
  const auto isBone = [&](const std::string& name) {
    return skeleton.Find(Nox::PString(name)) != Skeleton::kNone;
  };
  return animation.bones.empty() || std::any_of(animation.bones.begin(), animation.bones.end(), isBone);
}

}  // namespace

MeshData::MeshData(Nox::ResourceDatabase& database, const Nox::MaterialManager* materials)
    : database_(database), materials_(materials) {}

MeshData::~MeshData() = default;

bool MeshData::Load(std::string_view name, MeshReporter* reporter) {
  reporter_ = reporter;
  const std::string_view path = Nox::Path::ExtractFirstPath(name);
  const Nox::Ref<Nox::Resource> found = database_.Get(name);
  if (found == nullptr) {
    if (reporter != nullptr && !reporter->AliasHidesMissingMesh())
      reporter->Error(MeshFinding::kNotFound, path);
    return false;
  }
  if (!LoadResource(found)) {
    if (reporter != nullptr) reporter->Error(MeshFinding::kNotLoaded, path);
    return false;
  }
  if (reporter != nullptr) reporter->Trace(MeshFinding::kLoaded);
  CopyAttachments();
  if (reporter != nullptr) CheckMeshTextures(*resource_->GetDefinition(), database_, *reporter);
  CopyBones();
  return true;
}

bool MeshData::LoadResource(const Nox::Ref<Nox::Resource>& found) {
  auto* const mesh = dynamic_cast<MorvexGeometryBaseResource*>(found.Get());
  if (mesh == nullptr) return false;
  mesh->SetMaterials(materials_);
  const bool isLoaded = mesh->Lock() == 0 && mesh->CanMakeInstance();
  mesh->Unlock();
  if (isLoaded) resource_ = Nox::Ref<MorvexGeometryBaseResource>(mesh);
  return isLoaded;
}

void MeshData::CopyAttachments() {
  attachments_ = resource_->GetDefinition()->attachments;
  for (MeshAttachment& attachment : attachments_) {
    attachment.name = Nox::PString(LastComponent(attachment.name));
    attachmentNames_.insert(attachment.name);
  }
}

void MeshData::CopyBones() {
  const Skeleton& skeleton = resource_->GetDefinition()->skeleton;
  bones_.reserve(skeleton.Size());
  for (const uint32_t number : skeleton.DepthFirst()) {
    const Skeleton::Bone& bone = skeleton.At(number);
    bones_.push_back({bone.name, bone.position});
  }
}

const MorvexIndexedMeshDefinition* MeshData::GetDefinition() const {
  return resource_ == nullptr ? nullptr : resource_->GetDefinition();
}

uint64_t MeshData::GetFaceCount() const {
  const MorvexIndexedMeshDefinition* const mesh = GetDefinition();
  return mesh == nullptr ? 0 : mesh->MainLevel().FaceTotal();
}

Nox::Vector3 MeshData::GetPosition() const {
  const MorvexIndexedMeshDefinition* const mesh = GetDefinition();
  return mesh == nullptr ? Nox::Vector3() : mesh->position;
}

bool MeshData::AddAnimation(std::string_view name) {
  const auto refuse = [&](MeshFinding finding) {
    if (reporter_ != nullptr) reporter_->Error(finding, name);
    return false;
  };
  if (resource_ == nullptr) return refuse(MeshFinding::kNothingToAnimate);
  const Nox::Location file = database_.FileOf(name);
  if (!Nox::File::Exists(file)) return refuse(MeshFinding::kAnimationNotFound);
  const std::optional<Animation> animation = ReadAnimation(file);
  if (!animation) return refuse(MeshFinding::kAnimationUnread);
  if (!Fits(*animation, resource_->GetDefinition()->skeleton)) return refuse(MeshFinding::kAnimationUnfit);
  animations_.push_back({std::string(name), animation->seconds});
  if (reporter_ != nullptr) reporter_->Trace(MeshFinding::kAnimationLoaded);
  return true;
}

const MorvexIndexedMeshLODDefinition* LODMeshData::GetDefinition() const {
  return dynamic_cast<const MorvexIndexedMeshLODDefinition*>(MeshData::GetDefinition());
}

}  // namespace morvex
