// The meshes that the tags of an asset load.

#include <string>
#include <utility>

#include "engine/path.h"
#include "engine/render_kernel.h"
#include "mesh/animation.h"
#include "validation/qel/container_reporter.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

bool HasLevels(std::string_view path) {
  return Nox::Path::IsExt(path, "lm") || Nox::Path::IsExt(path, "lm.txt");
}

}  // namespace

morvex::MeshData* DataManager::LoadMesh(std::string_view path, Container& container) {
  if (Nox::Path::IsExt(path, "pm")) {
    ReportWarning(kEntryOldMesh);
    loadFailed = true;
    return nullptr;
  }
  const std::string_view fileName = Nox::Path::GetFileName(path);
  if (Nox::Path::IsExt(path, "kin")) {
    const bool isAnimation = morvex::ReadAnimation(resources_->FileOf(ResourceName(path))).has_value();
    if (!isAnimation) ReportError(container, kEntryAnimationUnreadable, fileName);
    return nullptr;
  }
  LoadedMesh loaded;
  loaded.mesh = MakeMesh(path);
  if (loaded.mesh == nullptr) return nullptr;
  loaded.fileName = fileName;
  loaded.reporter = std::make_unique<ContainerReporter>(container, assetPath_);
  if (!loaded.mesh->Load(ResourceName(path), loaded.reporter.get())) {
    loadFailed = true;
    return nullptr;
  }
  return KeepMesh(std::move(loaded), container);
}

std::unique_ptr<morvex::MeshData> DataManager::PeekMesh(std::string_view path) {
  std::unique_ptr<morvex::MeshData> mesh = MakeMesh(path);
  const bool isLoaded = mesh != nullptr && mesh->Load(ResourceName(path), nullptr);
  return isLoaded ? std::move(mesh) : nullptr;
}

// Null for a file that is no mesh by its name.
std::unique_ptr<morvex::MeshData> DataManager::MakeMesh(std::string_view path) {
  const Nox::MaterialManager* const materials = engine_ == nullptr ? nullptr : engine_->GetMaterialManager();
  if (Nox::Path::IsExt(path, "im")) return std::make_unique<morvex::MeshData>(*resources_, materials);
  if (HasLevels(path)) return std::make_unique<morvex::LODMeshData>(*resources_, materials);
  return nullptr;
}

std::string DataManager::ResourceName(std::string_view path) const {
  return Nox::Path::Normalize(Nox::Path::AddPath(assetPath_, path));
}

morvex::MeshData* DataManager::KeepMesh(LoadedMesh loaded, const Container& container) {
  currentMesh_ = loaded.mesh.get();
  meshes_[&container] = std::move(loaded);
  OnAttachmentUsersChanged();
  OnUniqueAttachmentUsersChanged();
  OnMeshChanged();
  return currentMesh_;
}

const DataManager::LoadedMesh* DataManager::FindMesh(const Container* container) const {
  const auto found = meshes_.find(container);
  return found == meshes_.end() ? nullptr : &found->second;
}

void DataManager::ClearMeshes() {
  currentMesh_ = nullptr;
  meshes_.clear();
  resources_->DumpUnusedResourcesFromCache();
}

void DataManager::RemoveMesh(const Container& container) {
  const auto found = meshes_.find(&container);
  if (found != meshes_.end()) {
    if (found->second.mesh.get() == currentMesh_) currentMesh_ = nullptr;
    meshes_.erase(found);
  }
  OnAttachmentUsersChanged();
  OnUniqueAttachmentUsersChanged();
}

}  // namespace QELLib
