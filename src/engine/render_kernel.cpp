#include "engine/render_kernel.h"

#include "engine/options.h"

namespace Nox {

void RenderKernel::Init(const Options& options, void (*getPlugins)()) {
  getPlugins();
  hasMaterials_ = !options.Has("NullRender");
}

}  // namespace Nox
