#include "validation/categories/koolthingz_spec.h"

namespace morvex {

KoolthingzSpec::KoolthingzSpec(const KUID& specKuid, const SpecPlace& specPlace,
                               const TagContainer& specConfig)
    : kuid(specKuid), isNull(specKuid.IsNull()), place(specPlace), config(specConfig) {}

KoolthingzSpec::~KoolthingzSpec() = default;

}  // namespace morvex
