#pragma once

#include <cstdint>
#include <memory>

#include "engine/pstring.h"

namespace morvex {

class KoolthingzSpec;
class TagContainer;
struct SpecPlace;

// Makes the specs of one kind. The registry owns a factory once it was added; one that goes earlier takes
// itself out of the registry.
class KTSpecFactory {
 public:
  explicit KTSpecFactory(Nox::PString kind) : kindName(kind) {}
  KTSpecFactory(const KTSpecFactory&) = delete;
  KTSpecFactory& operator=(const KTSpecFactory&) = delete;

  // Null if the configuration doesn't make a spec. The flags are the caller's and the factory's affair.
  [[nodiscard]] virtual std::unique_ptr<KoolthingzSpec> CreateSpec(const SpecPlace& place, uint32_t flags,
                                                                   const TagContainer& config) = 0;
  virtual ~KTSpecFactory();

  const Nox::PString kindName;
};

}  // namespace morvex
