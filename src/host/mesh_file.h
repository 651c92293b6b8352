#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "mesh/lod_mesh_definition.h"
#include "mesh/mesh_result.h"

namespace morvex::host {

// A mesh file as it lies on the disk, with the materials that this program knows. No installation is needed.
struct MeshFile {
  MeshResult result = RES_FILE_OPEN_ERROR;
  std::string_view kind;  // "im", "imtxt", "lm" or "lm.txt"; empty for other files, which aren't read
  // Null unless the result is success.
  std::unique_ptr<MorvexIndexedMeshDefinition> definition;
  const MorvexIndexedMeshLODDefinition* lod = nullptr;  // the same mesh, if it has levels of detail
};

MeshFile LoadMeshFile(const std::string& path);

}  // namespace morvex::host
