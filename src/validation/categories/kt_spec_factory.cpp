#include "validation/categories/kt_spec_factory.h"

#include "validation/categories/spec_database.h"

namespace morvex {

KTSpecFactory::~KTSpecFactory() {
  if (KoolthingzSpecDatabase* registry = KoolthingzSpecDatabase::Get()) registry->ForgetFactory(this);
}

}  // namespace morvex
