#pragma once

#include <string_view>
#include <vector>

namespace Nox {

// What a program adds to the engine. Registers itself when it is made and takes itself out when it goes.
// Plug-ins are made at the start of a run, by one thread, before anything asks for them.
class Plugin {
 public:
  Plugin(const Plugin&) = delete;
  Plugin& operator=(const Plugin&) = delete;
  virtual ~Plugin();

  std::string_view Name() const { return name_; }
  std::string_view Id() const { return id_; }              // a GUID in its text form
  std::string_view FamilyId() const { return familyId_; }  // empty for a kind that has no families

  // In the order in which they were made.
  static const std::vector<Plugin*>& All();

 protected:
  // The texts must outlive the plug-in.
  Plugin(std::string_view name, std::string_view id, std::string_view familyId = {});

 private:
  const std::string_view name_;
  const std::string_view id_;
  const std::string_view familyId_;
};

}  // namespace Nox
