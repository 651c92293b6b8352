#include "database/operations/file_name_rule.h"

#include "engine/path.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

const Nox::PString kBuild("morvex-build");
const Nox::PString kAssetFileName("asset-filename");
constexpr float kFirstBuildWithFreeNames = 2.5F;

}  // namespace

void ApplyFileNameRule(TagContainer& config, std::string_view folderPath) {
  if (config.GetFloat(kBuild) >= kFirstBuildWithFreeNames || config.HasTag(kAssetFileName)) return;
  const std::string folder = Nox::Path::DelSlash(folderPath);
  config.SetString(kAssetFileName, Nox::Path::GetFileName(folder));
}

}  // namespace morvex
