#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engine/location.h"

namespace QELLib {

class Container;

// What a validation wants to know of a loaded mesh.
class AssetMesh {
 public:
  virtual ~AssetMesh() = default;
  // The names of its attachment points.
  virtual const std::vector<std::string>& AttachmentNames() const = 0;
};

// Loads meshes for validations. Whoever can read mesh files implements it and hands it to the DataManager;
// with none, nothing is known of any mesh, and nothing is said about it.
class MeshLoader {
 public:
  virtual ~MeshLoader() = default;
  // Null if the file can't be loaded; the words go to the ErrorHandler, about `owner`.
  virtual std::unique_ptr<AssetMesh> Load(const Nox::Location& file, const Container& owner) = 0;
  // Whether the file is an animation that can be read.
  virtual bool IsAnimation(const Nox::Location& file) = 0;
};

}  // namespace QELLib
