#pragma once

#include <string>
#include <string_view>

#include "engine/pstring.h"

namespace QELLib {

// What the user says of himself once; it fills in what a new configuration leaves empty.
struct PersonalDetails {
  Nox::PString author;
  Nox::PString license;
  Nox::PString organisation;
  Nox::PString email;
  Nox::PString website;
  bool isbanneron = false;
  bool isinputboxon = false;

  // The detail that a tag of this name defaults to; empty for other names.
  Nox::PString DefaultFor(Nox::PString tagName) const;

  bool operator==(const PersonalDetails&) const = default;
};

// From the data folder; a missing file is empty details.
[[nodiscard]] PersonalDetails ReadPersonalDetails(std::string_view folder);
// Replaces the file. That it can't is nobody's concern.
void WritePersonalDetails(std::string_view folder, const PersonalDetails& details);
[[nodiscard]] bool HasPersonalDetails(std::string_view folder);

}  // namespace QELLib
