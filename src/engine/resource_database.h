#pragma once

#include <map>
#include <string>
#include <string_view>

#include "engine/location.h"
#include "engine/pstring.h"
#include "engine/reference.h"
#include "engine/resource.h"
#include "engine/text.h"

namespace Nox {

// The resources below one folder or archive. Keeps each that was asked for until they are dumped, so that
// what several ask for is read once. For one thread at a time.
class ResourceDatabase {
 public:
  // `name` is that of a mounted pack; with the empty name, resources are named by paths of the host.
  explicit ResourceDatabase(PString name) : name_(name) {}
  virtual ~ResourceDatabase() = default;
  ResourceDatabase(const ResourceDatabase&) = delete;
  ResourceDatabase& operator=(const ResourceDatabase&) = delete;

  PString Name() const { return name_; }
  Location FileOf(std::string_view resourceName) const { return {name_, std::string(resourceName)}; }

  // The resource of that name, not yet loaded. Names don't tell cases apart. Null if there is no such file, or
  // no plug-in for its type.
  [[nodiscard]] Ref<Resource> Get(std::string_view resourceName);
  // Whether there is a texture of that name: the file itself, or for a "texture" the text that describes it.
  [[nodiscard]] bool HasTexture(std::string_view textureName) const;
  // Lets go of all resources that nobody else holds.
  void DumpUnusedResourcesFromCache();

 private:
  const PString name_;
  std::map<std::string, Ref<Resource>, LessIgnoreCase> cache_;
};

}  // namespace Nox
