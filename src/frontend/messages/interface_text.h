#pragma once

#include <string_view>

#include "engine/pstring.h"
#include "tagdata/tag_container.h"

namespace morvex {

// The texts that users read, by key, in their language: one soup out of the installation's folder "data".
// Keys begin with '$' and are looked up whole.
class InterfaceTextDB {
 public:
  // Reads the compiled file of the current language, or the text file beside it if that fails. Throws a
  // MorvexEx if neither can be read.
  InterfaceTextDB();
  InterfaceTextDB(const InterfaceTextDB&) = delete;
  InterfaceTextDB& operator=(const InterfaceTextDB&) = delete;
  virtual ~InterfaceTextDB();

  // An empty key is its own text; a missing one has the empty text. With `warn`, the first missing keys of
  // a run are logged.
  Nox::PString GetString(Nox::PString key, bool warn) const;
  // A key that is missing from its section is its own text.
  Nox::PString GetSpecString(Nox::PString key) const;
  Nox::PString GetScenarioString(Nox::PString key) const;

  // Chooses the file for a language code, in any case; an unknown code changes nothing. To be called before
  // the first look-up.
  static void SetLanguage(std::string_view code);

 private:
  TagContainer root_;
  TagContainer mapText_;
  TagContainer specText_;
  TagContainer scenarioText_;
};

// The text of a key, from the one database of the process, which the first call makes. Any thread.
Nox::PString GetInterfaceString(Nox::PString key);
inline Nox::PString GetInterfaceString(std::string_view key) {
  return GetInterfaceString(Nox::PString(key));
}

}  // namespace morvex
