#include "engine/resource_database.h"

#include "engine/file.h"
#include "engine/path.h"
#include "engine/resource_type.h"

namespace Nox {
namespace {

bool IsFile(const Location& location) {
  return File::Exists(location) && !File::IsFolder(location);
}

}  // namespace

const ResourceTypeBase* ResourceTypeBase::Find(std::string_view fileName) {
  const ResourceTypeBase* best = nullptr;
  for (const Plugin* plugin : Plugin::All()) {
    const auto* const type = dynamic_cast<const ResourceTypeBase*>(plugin);
    if (type == nullptr || !Path::IsExt(fileName, type->Extension())) continue;
    if (best == nullptr || type->Extension().size() > best->Extension().size()) best = type;
  }
  return best;
}

Ref<Resource> ResourceDatabase::Get(std::string_view resourceName) {
  const auto known = cache_.find(resourceName);
  if (known != cache_.end()) return known->second;
  const ResourceTypeBase* const type = ResourceTypeBase::Find(resourceName);
  if (type == nullptr || !IsFile(FileOf(resourceName))) return nullptr;
  Ref<Resource> resource = type->CreateResource(*this, resourceName);
  cache_.emplace(resourceName, resource);
  return resource;
}

bool ResourceDatabase::HasTexture(std::string_view textureName) const {
  if (IsFile(FileOf(textureName))) return true;
  return Path::IsExt(textureName, "texture") && IsFile(FileOf(std::string(textureName) + ".txt"));
}

void ResourceDatabase::DumpUnusedResourcesFromCache() {
  std::erase_if(cache_, [](const auto& entry) {
    const Ref<Resource>& resource = entry.second;
    return resource->IsUnique() && !resource->IsLocked();
  });
}

}  // namespace Nox
