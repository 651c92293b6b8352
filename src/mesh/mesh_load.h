#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/owned_bytes.h"
#include "engine/pstring.h"

namespace Nox {
class MaterialManager;
}

namespace morvex {

// Wishes of whoever loads a mesh; none is a wish that isn't set.
struct MeshSettings {
  std::optional<bool> softwareLighting = {};
  std::optional<bool> softwareAnimation = {};
  std::optional<bool> dynamicVertex = {};
  std::optional<bool> dynamicIndex = {};
  std::optional<bool> hardwareAnimationFloatPrecision = {};
};

// What a load asks of the display.
struct MeshDisplay {
  bool skinsMeshes = false;  // its capability number 26: bones are moved by the hardware
  std::uint32_t vertexColour = 0xFFFFFFFF;
  std::vector<std::string> extensions;  // that it knows, by name
};

// What stands around the file while a mesh is loaded.
struct MeshLoadContext {
  const Nox::MaterialManager* materials = nullptr;  // null: the mesh gets null materials
  std::string ownerName;                            // of the resource
  std::string resourceName;                         // its path; textures are looked for in its folder
  MeshSettings settings;
  MeshDisplay display;
  bool allowMaterialFallback =
      false;  // take the nameless material of a type if that of the name can't be had
  std::vector<std::string>* missingMaterials = nullptr;  // gets the names that the manager refused
};

// Finds the files that a text of levels names.
class MeshFileSource {
 public:
  virtual ~MeshFileSource() = default;
  // The whole file; none if it can't be had. `name` is as the text has it: it counts from the text's folder.
  virtual std::optional<Nox::OwnedBytes> ReadMeshFile(std::string_view name) = 0;
};

}  // namespace morvex
