#pragma once

#include <cstdint>
#include <memory>

#include "engine/pstring.h"
#include "tagdata/kuid.h"
#include "tagdata/property.h"
#include "tagdata/tag_container.h"

namespace morvex {

// Where a spec's asset lies.
struct SpecPlace {
  Nox::PString packName;  // empty if the asset is in no pack
  Nox::PString folderName;
  Nox::PString fileName;  // of its configuration
};

// A typed, loaded view of one asset: the base of all specs. A subclass fills itself in Load, says in
// CheckValid whether what it found makes sense, and does in OnValid what needs sound data. The registry,
// KoolthingzSpecDatabase, owns it and calls these.
class KoolthingzSpec : public IdentifiableType {
 public:
  KoolthingzSpec(const KUID& specKuid, const SpecPlace& specPlace, const TagContainer& specConfig);
  ~KoolthingzSpec() override;
  KoolthingzSpec(const KoolthingzSpec&) = delete;
  KoolthingzSpec& operator=(const KoolthingzSpec&) = delete;

  virtual void Load() { loaded = true; }
  virtual bool CheckValid() { return true; }
  virtual void OnValid() {}

  const KUID kuid;
  const bool isNull;     // its KUID is the null KUID
  bool isValid = false;  // the answer of the last CheckValid
  const SpecPlace place;
  std::shared_ptr<void> pack;  // keeps the pack mounted; null without a pack. Set by whoever mounts it
  TagContainer config;         // shares the soup
  bool loadStarted = false;    // set by the registry
  bool loaded = false;         // set by Load
};

}  // namespace morvex
