#include "validation/qel/personal_details.h"

#include "engine/file.h"
#include "engine/path.h"
#include "tagdata/tag_container.h"

namespace QELLib {
namespace {

const Nox::PString kAuthor("author");
const Nox::PString kOrganisation("organisation");
const Nox::PString kEmail("email");
const Nox::PString kWebsite("website");
const Nox::PString kLicense("license");
const Nox::PString kContactEmail("contact-email");
const Nox::PString kContactWebsite("contact-website");
const Nox::PString kIsBannerOn("isbanneron");
const Nox::PString kIsInputBoxOn("isinputboxon");

std::string FileIn(std::string_view folder) {
  return Nox::Path::AddPath(folder, "personalDetails.txt");
}

}  // namespace

Nox::PString PersonalDetails::DefaultFor(Nox::PString tagName) const {
  if (tagName == kLicense) return license;
  if (tagName == kAuthor) return author;
  if (tagName == kContactEmail) return email;
  if (tagName == kContactWebsite || tagName == kWebsite) return website;
  if (tagName == kOrganisation) return organisation;
  return {};
}

bool HasPersonalDetails(std::string_view folder) {
  return Nox::File::Exists(FileIn(folder));
}

PersonalDetails ReadPersonalDetails(std::string_view folder) {
  morvex::TagContainer file;
  PersonalDetails details;
  if (!file.Load({}, FileIn(folder))) return details;
  details.author = file.GetString(kAuthor);
  details.organisation = file.GetString(kOrganisation);
  details.email = file.GetString(kEmail);
  details.website = file.GetString(kWebsite);
  details.license = file.GetString(kLicense);
  details.isbanneron = file.GetBool(kIsBannerOn);
  details.isinputboxon = file.GetBool(kIsInputBoxOn);
  return details;
}

void WritePersonalDetails(std::string_view folder, const PersonalDetails& details) {
  morvex::TagContainer file;
  file.SetString(kAuthor, details.author);
  file.SetString(kOrganisation, details.organisation);
  file.SetString(kEmail, details.email);
  file.SetString(kWebsite, details.website);
  file.SetString(kLicense, details.license);
  file.SetBool(kIsBannerOn, details.isbanneron);
  file.SetBool(kIsInputBoxOn, details.isinputboxon);
  (void)file.Save({}, FileIn(folder));
}

}  // namespace QELLib
