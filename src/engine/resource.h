#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/location.h"
#include "engine/pstring.h"
#include "engine/reference.h"

namespace Nox {

class ResourceDatabase;

// Something loaded from a file of a resource database, made by the plug-in of its type. Unloaded until it is
// locked for the first time. Must not outlive its database. For one thread at a time.
class Resource : public ReferenceCountMP {
 public:
  // `name` is a path below the database's folder or archive.
  Resource(const ResourceDatabase& database, std::string_view name) : database_(&database), name_(name) {}

  // Loads the resource, once. 0 for success; another number is the type's own, and the same each time.
  [[nodiscard]] int Lock();
  // Ends what a Lock began, whatever that answered.
  void Unlock() { --locks_; }
  bool IsLocked() const { return locks_ > 0; }

  const std::string& GetName() const { return name_; }
  // The pack that the resource comes from; empty for a path of the host.
  PString GetOwnerName() const;
  const ResourceDatabase& Database() const { return *database_; }
  Location File() const;
  // The name, in the database, of a file that this resource names: such names count from its own folder.
  std::string ConvertResourceName(std::string_view name) const;

 protected:
  // Reads the file. 0 for success.
  [[nodiscard]] virtual int Load() = 0;
  // Runs behind a Load that succeeded.
  virtual void LoadComplete() {}

 private:
  const ResourceDatabase* database_;
  const std::string name_;
  int locks_ = 0;
  std::optional<int> loadResult_;
};

}  // namespace Nox
