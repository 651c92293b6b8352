#include "database/catalogue/config_reader.h"

#include "database/catalogue/asset_info.h"
#include "database/catalogue/asset_location.h"
#include "database/catalogue/pack_table.h"
#include "engine/path.h"
#include "engine/read_file.h"
#include "tagdata/chump_file.h"
#include "tagdata/raw.h"
#include "tagdata/text_config.h"

namespace morvex {
namespace {

using Parse = TagContainer (*)(std::string_view);

TagContainer ReadOne(const Nox::Location& folder, std::string_view name, Parse parse) {
  const std::string path = Nox::Path::AddPath(folder.path, name);
  const auto bytes = Nox::ReadWholeFile({folder.pack, path}, kMaxConfig);
  return bytes ? parse(bytes->Text()) : TagContainer();
}

}  // namespace

TagContainer ParseConfigText(std::string_view text) {
  TagContainer config;
  ParseSoupText(config, text, false);
  return config;
}

TagContainer ParseConfigChump(std::string_view image) {
  return ReadChumpImage(ACSRawDataCore::CopyBytes(image.data(), image.size()));
}

TagContainer ReadConfig(const Nox::Location& folder) {
  if (folder.path.empty()) return {};
  TagContainer config = ReadOne(folder, kConfigChump, &ParseConfigChump);
  if (config.IsEmpty()) config = ReadOne(folder, kConfigText, &ParseConfigText);
  return config;
}

TagContainer ReadConfig(const ZEBAssetInfo& record) {
  const Nox::Location location = ConfigLocation(record);
  const PackMount mount(location.pack);
  return ReadConfig(location);
}

}  // namespace morvex
