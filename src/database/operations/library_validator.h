#pragma once

#include <string_view>

#include "database/operations/asset_validator.h"

namespace Nox {
class RenderKernel;
}

namespace morvex {

// Judges commits by the validation library. Made once at start-up, before the database starts; makes the
// library's services and becomes the validator of all commits. Ends both when it goes, which must be after
// the database's end.
class LibraryValidator final : public AssetValidator {
 public:
  // `dataFolder` holds the definitions and tables. Where it is missing, no asset passes.
  explicit LibraryValidator(std::string_view dataFolder);
  ~LibraryValidator() override;
  LibraryValidator(const LibraryValidator&) = delete;
  LibraryValidator& operator=(const LibraryValidator&) = delete;

  // From now on meshes are loaded with this engine, whose plug-ins must be there. It must outlive the validator.
  void StartMeshes(const Nox::RenderKernel& engine);
  bool Validate(const KUID& kuid, ResultsLog& log) override;
};

}  // namespace morvex
