// Lists the installed assets of the installation that is named on the command line.

#include <iostream>

#include "database/catalogue/asset_query.h"
#include "database/catalogue/asset_status.h"
#include "database/operations/session.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: list_assets <installation>\n";
    return 2;
  }
  const std::string root = argv[1];
  morvex::InstallationSession session;
  if (!session.Start({root, root + "/bin/QELData/", "Example", "list_assets", "-hidewindow"})) return 1;

  morvex::ZEBAssetQuery query;
  query.installed = morvex::QueryFilter::kMustBeTrue;
  morvex::KUIDList found;
  morvex::ZEBSearchAssets(query, found);  // waits until the index is loaded
  for (const morvex::KUID& kuid : found) {
    morvex::ZEBAssetStatus status;
    morvex::ZEBGetAssetStatus(kuid, status);
    std::cout << kuid.TagText() << "  " << status.Letters() << "  " << status.name << '\n';
  }
  return session.Stop() ? 0 : 1;
}
