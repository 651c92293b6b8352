#pragma once

#include <string_view>

#include "engine/plugin.h"
#include "engine/reference.h"
#include "engine/resource.h"

namespace Nox {

// Makes the resources of one type. The type's name is the maker's word and the extension of its files, as
// in "morvex.lm.txt".
class ResourceTypeBase : public Plugin {
 public:
  ResourceTypeBase(std::string_view name, std::string_view id, std::string_view familyId)
      : Plugin(name, id, familyId) {}

  std::string_view Extension() const { return Name().substr(Name().find('.') + 1); }
  [[nodiscard]] virtual Ref<Resource> CreateResource(const ResourceDatabase& database,
                                                     std::string_view name) const = 0;

  // The type of a file by its extension, the longest that fits; null if there is none.
  static const ResourceTypeBase* Find(std::string_view fileName);
};

template <typename T>
class ResourceType final : public ResourceTypeBase {
 public:
  using ResourceTypeBase::ResourceTypeBase;
  Ref<Resource> CreateResource(const ResourceDatabase& database, std::string_view name) const override {
    return MakeRef<T>(database, name);
  }
};

}  // namespace Nox
