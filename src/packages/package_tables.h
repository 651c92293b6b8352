#pragma once

#include "tagdata/kuid_list.h"

namespace morvex {

class TagContainer;

// The three lists that a package has beside its assets: what is in it, what that needs, what that makes obsolete.
// Each asset is taken once, in the order of the package; that costs the same however many came before.
class PackageTables {
 public:
  void Take(const TagContainer& asset);
  // True if an asset of that KUID was taken.
  bool Holds(const KUID& kuid) const { return contents_.Contains(kuid); }

  // Sets the tables and the marks of a package, at the end of the root's order.
  void StoreIn(TagContainer& archive) const;

 private:
  KUIDList contents_;
  KUIDList dependencies_;  // as the assets have them; what the package holds goes out at the end
  KUIDList obsoletes_;
};

}  // namespace morvex
