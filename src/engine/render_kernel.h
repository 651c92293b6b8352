#pragma once

#include "engine/material_manager.h"

namespace Nox {

class Options;

// What of the engine's renderer a program without pictures has a use for: the program's plug-ins, and the
// materials that meshes are made with.
class RenderKernel {
 public:
  // Calls the program's export, which makes its plug-ins.
  void Init(const Options& options, void (*getPlugins)());

  // Null where nothing can be drawn ("NullRender"): meshes then load with null materials.
  const MaterialManager* GetMaterialManager() const { return hasMaterials_ ? &materials_ : nullptr; }

 private:
  MaterialManager materials_;
  bool hasMaterials_ = false;
};

}  // namespace Nox
