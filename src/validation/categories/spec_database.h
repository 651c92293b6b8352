#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "tagdata/kuid.h"
#include "validation/categories/kt_spec_factory.h"

namespace morvex {

// Says whether a spec is wanted.
using SpecFilter = std::function<bool(const KoolthingzSpec&)>;

// The registry of specs and factories, one in a process. Owns both. It is asked first for a loaded asset;
// where it knows none, the index record serves. Used under the database lock.
//
// A spec is in use, and then found by its KUID, or pending: its validity check failed.
class KoolthingzSpecDatabase {
 public:
  KoolthingzSpecDatabase();   // becomes the one that Get gives
  ~KoolthingzSpecDatabase();  // frees the specs in use, those pending, then the factories
  KoolthingzSpecDatabase(const KoolthingzSpecDatabase&) = delete;
  KoolthingzSpecDatabase& operator=(const KoolthingzSpecDatabase&) = delete;

  // Null before the registry is made and after it went.
  static KoolthingzSpecDatabase* Get();

  // The first spec in use with that KUID; null if there is none, if the filter refuses it, and for the two
  // reserved KUIDs. The registry keeps the spec.
  KoolthingzSpec* Find(const KUID& kuid, const SpecFilter& filter = {}) const;
  // Looks among the pending specs too, but never for the temporary author.
  KoolthingzSpec* FindIncludingPending(const KUID& kuid, const SpecFilter& filter = {}) const;
  // The spec may have become pending by its loading.
  KoolthingzSpec* FindAndLoad(const KUID& kuid, const SpecFilter& filter = {});

  // Of two factories of one kind the earlier serves.
  void AddFactory(std::unique_ptr<KTSpecFactory> factory);
  // Gives up the factory without freeing it.
  void ForgetFactory(const KTSpecFactory* factory);

  void AddSpec(std::unique_ptr<KoolthingzSpec> spec);
  // The spec is the caller's now; null if it isn't here.
  std::unique_ptr<KoolthingzSpec> RemoveSpec(const KoolthingzSpec* spec);

  // Has the factory of the configuration's `kind`, in any case, make a spec and puts it in use. Null if
  // there is no factory or it makes none. The caller goes on with LoadSpec.
  KoolthingzSpec* CreateSpec(const SpecPlace& place, uint32_t flags, const TagContainer& config);
  // Loads a spec of the registry once; one that is invalid becomes pending.
  void LoadSpec(KoolthingzSpec& spec);

 private:
  using SpecList = std::vector<std::unique_ptr<KoolthingzSpec>>;

  void TakeOutOfTable(const KoolthingzSpec* spec);

  SpecList specs_;
  SpecList pending_;
  std::vector<std::unique_ptr<KTSpecFactory>> factories_;
  std::unordered_map<KUID, std::vector<KoolthingzSpec*>> byKuid_;  // of specs_, the earlier first
};

}  // namespace morvex
