#include "mesh/mesh_textures.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "engine/file.h"
#include "engine/path.h"
#include "engine/resource_database.h"
#include "engine/text.h"
#include "engine/texture_text.h"
#include "mesh/indexed_mesh_definition.h"
#include "mesh/mesh_reporter.h"

namespace morvex {
namespace {

class TextureSearch {
 public:
  TextureSearch(const Nox::ResourceDatabase& database, MeshReporter& reporter)
      : database_(database), reporter_(reporter) {}

  void Look(const std::string& name) {
    if (!seen_.insert(name).second) return;
    if (Nox::Path::IsExt(name, "txt")) {
      LookForImageOf(name);
    } else if (Nox::Path::IsExt(name, "texture")) {
      LookForImageOf(name + ".txt");
    }
    if (!database_.HasTexture(name)) reporter_.Error(MeshFinding::kTextureMissing, name);
  }

 private:
  // The image that a description names. One that isn't there says nothing, and neither does one without an image.
  void LookForImageOf(std::string_view description) {
    const std::optional<std::string> primary = Nox::ReadPrimaryImage(database_.FileOf(description));
    if (!primary) return;
    const std::string image =
        Nox::Path::AddPath(Nox::Path::DelName(description, false), Nox::ToLower(*primary));
    if (!Nox::File::Exists(database_.FileOf(image))) reporter_.Error(MeshFinding::kTextureMissing, image);
  }

  const Nox::ResourceDatabase& database_;
  MeshReporter& reporter_;
  std::unordered_set<std::string_view> seen_;  // of the mesh's own texts
};

}  // namespace

void CheckMeshTextures(const MorvexIndexedMeshDefinition& mesh, const Nox::ResourceDatabase& database,
                       MeshReporter& reporter) {
  for (const Nox::TextureDefinition& refused : mesh.failedTextures)
    reporter.Warning(MeshFinding::kTextureRefused, refused.name, mesh.name);

  TextureSearch search(database, reporter);
  for (const std::shared_ptr<MeshLevel>& level : mesh.levels) {
    for (const MeshPart& part : level->parts) {
      for (const Nox::TextureDefinition& texture : part.material->GetTextureDefinitions())
        search.Look(texture.name);
    }
  }
}

}  // namespace morvex
