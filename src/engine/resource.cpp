#include "engine/resource.h"

#include "engine/path.h"
#include "engine/resource_database.h"

namespace Nox {

int Resource::Lock() {
  ++locks_;
  if (!loadResult_) {
    loadResult_ = Load();
    if (*loadResult_ == 0) LoadComplete();
  }
  return *loadResult_;
}

PString Resource::GetOwnerName() const {
  return database_->Name();
}

Location Resource::File() const {
  return database_->FileOf(name_);
}

std::string Resource::ConvertResourceName(std::string_view name) const {
  return Path::Normalize(Path::AddPath(Path::DelName(name_, false), name));
}

}  // namespace Nox
