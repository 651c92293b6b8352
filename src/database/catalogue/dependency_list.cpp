#include "database/catalogue/dependency_list.h"

#include "tagdata/kuid_list.h"
#include "tagdata/tag_container.h"

namespace morvex {

std::vector<KUID> DependenciesIn(const TagContainer& config, const KUID& asset) {
  static const Nox::PString kKuidTable("kuid-table");
  static const Nox::PString kObsoleteTable("obsolete-table");
  KUIDList mentioned;
  mentioned.ScanContainer(config);
  mentioned.FromContainer(config.GetContainer(kKuidTable));
  KUIDList obsolete;
  obsolete.FromContainer(config.GetContainer(kObsoleteTable));

  std::vector<KUID> dependencies;
  for (const KUID& kuid : mentioned) {
    if (kuid != asset && !obsolete.Contains(kuid)) dependencies.push_back(kuid);
  }
  return dependencies;
}

}  // namespace morvex
