#pragma once

#include "engine/location.h"

namespace QELLib {

// Checks the images that the texture descriptions in a folder and its subfolders name: that they are there,
// can be read, and have sizes that the engine takes. False if any error was reported.
bool CheckTextureFiles(const Nox::Location& folder);

}  // namespace QELLib
