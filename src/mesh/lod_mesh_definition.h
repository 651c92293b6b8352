#pragma once

#include <cstdint>
#include <vector>

#include "engine/pstring.h"
#include "mesh/indexed_mesh_definition.h"

namespace morvex {

// A level that is reached by name. Several names may lead to one level.
struct NamedMesh {
  Nox::PString name;
  std::uint32_t level = 0;
  bool animated = false;
};

// From where in the mesh the engine measures its distance.
enum class CalcPoint : std::uint32_t { kCentre = 0, kNear = 1, kFar = 2 };

// A mesh at several levels of detail, read from an .lm or an .lm.txt. Levels that are reached by threshold stand
// first, those that only have a name behind them.
struct MorvexIndexedMeshLODDefinition : MorvexIndexedMeshDefinition {
  const MeshLevel& MainLevel() const override { return *levels[thresholds.size() - 1]; }

  std::vector<float> thresholds;  // one for each level that is reached by threshold, never falling
  std::vector<NamedMesh> namedMeshes;
  CalcPoint calcPoint = CalcPoint::kCentre;  // or any other number that a file holds
  float offset = 0;
  float multiplier = 1;
  float animationCutOff = 0;
  float renderCutOff = 0;
  float attachmentCutOff = 0;
  std::vector<Nox::PString> cullAttachments;  // names of attachments that attachmentCutOff is about
};

}  // namespace morvex
