#pragma once

namespace Nox {
class ResourceDatabase;
}

namespace morvex {

class MeshReporter;
struct MorvexIndexedMeshDefinition;

// Looks for the textures that the materials of a mesh name, at every level of detail: an image, or a text that
// describes a texture and names the image. Reports those that a material refused and those that aren't there.
void CheckMeshTextures(const MorvexIndexedMeshDefinition& mesh, const Nox::ResourceDatabase& database,
                       MeshReporter& reporter);

}  // namespace morvex
