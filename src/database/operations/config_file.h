#pragma once

#include <string>

#include "engine/location.h"

namespace morvex {

class TagContainer;

// Which of its two forms a configuration has in an asset's folder.
enum class ConfigForm { kText, kChump };

// A configuration on its way into an asset's folder: written beside that folder, flushed and read back, then
// moved in by one rename. Whatever fails or dies on the way, the folder holds its old configuration or the new
// one, and no part of one. Unless it was moved in, the file is removed again.
class StagedConfig {
 public:
  StagedConfig() = default;
  ~StagedConfig();
  StagedConfig(const StagedConfig&) = delete;
  StagedConfig& operator=(const StagedConfig&) = delete;

  // Writes the file into the folder `beside`. False if it can't be written or doesn't read back.
  [[nodiscard]] bool Write(const Nox::Location& beside, const TagContainer& config, ConfigForm form);
  // Moves it into an asset's folder of the same pack, where it replaces a file of its name; the other form of the
  // configuration goes then. On false the folder is as it was.
  [[nodiscard]] bool MoveInto(const Nox::Location& folder);

 private:
  Nox::Location file_;
  ConfigForm form_ = ConfigForm::kText;
};

// Both steps. The folder's parent is where the file is written.
[[nodiscard]] bool WriteConfig(const Nox::Location& folder, const TagContainer& config, ConfigForm form);

// Removes an asset's folder that isn't wanted any longer. Its configuration goes first, so that no half of it can
// be taken for an asset.
void RemoveAssetFolder(const Nox::Location& folder);

}  // namespace morvex
