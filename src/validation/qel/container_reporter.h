#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "mesh/mesh_reporter.h"

namespace QELLib {

class Container;

// Tells the ErrorHandler what is found about a mesh, on the container whose tag asked for it. Must not outlive
// that container.
class ContainerReporter final : public morvex::MeshReporter {
 public:
  // Files are told by their paths in the asset's folder.
  ContainerReporter(const Container& owner, std::string assetPath)
      : owner_(owner), assetPath_(std::move(assetPath)) {}

  void Error(morvex::MeshFinding finding, std::string_view argument) override;
  void Warning(morvex::MeshFinding finding, std::string_view first, std::string_view second) override;
  void Trace(morvex::MeshFinding finding) override;
  bool AliasHidesMissingMesh() const override;

 private:
  std::string InAsset(std::string_view path) const;

  const Container& owner_;
  const std::string assetPath_;
};

}  // namespace QELLib
