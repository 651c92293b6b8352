// The meshes that the tags of an asset load.

#include <string>
#include <utility>

#include "engine/path.h"
#include "engine/text.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

bool NamesMesh(std::string_view path) {
  return Nox::Path::IsExt(path, "im") || Nox::Path::IsExt(path, "lm") || Nox::Path::IsExt(path, "lm.txt");
}

}  // namespace

AssetMesh* DataManager::LoadMesh(std::string_view path, Container& container) {
  if (path.empty()) return nullptr;
  if (Nox::Path::IsExt(path, "pm")) {
    ReportWarning(kEntryOldMesh);
    loadFailed = true;
    return nullptr;
  }
  if (meshLoader_ == nullptr) {
    isMeshUnread |= NamesMesh(path);
    return nullptr;
  }
  const Nox::Location file = {
      assetLocation_.pack, Nox::Path::ReplaceForwardSlashes(Nox::Path::AddPath(assetLocation_.path, path))};
  const std::string_view name = Nox::Path::GetFileName(path);
  if (Nox::Path::IsExt(path, "kin")) {
    if (!meshLoader_->IsAnimation(file)) ReportError(container, kEntryAnimationUnreadable, name);
    return nullptr;
  }
  if (!NamesMesh(path)) return nullptr;
  std::unique_ptr<AssetMesh> mesh = meshLoader_->Load(file, container);
  if (mesh == nullptr) {
    loadFailed = true;
    return nullptr;
  }
  return KeepMesh(name, std::move(mesh), container);
}

AssetMesh* DataManager::KeepMesh(std::string_view fileName, std::unique_ptr<AssetMesh> mesh,
                                 Container& container) {
  currentMesh_ = mesh.get();
  meshes_[&container] = {std::string(fileName), std::move(mesh)};
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
