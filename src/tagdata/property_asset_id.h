#pragma once

#include "tagdata/kuid.h"
#include "tagdata/property.h"

namespace morvex {

// Names the asset that an entry of a log concerns. The one property that holds its value itself.
class MorvexPropertyAssetID final : public MorvexPropertyRefCounted {
 public:
  MorvexPropertyAssetID(Nox::PString propertyName, const KUID& kuid)
      : MorvexPropertyRefCounted(propertyName), kuid_(kuid) {}

  // Any text form of a KUID; what isn't one is the null KUID.
  void SetValue(const char* text) override { kuid_ = KUID(text, false); }
  void GetValue(std::string& text) const override { text = kuid_.TagText(); }

 private:
  KUID kuid_;
};

}  // namespace morvex
