#pragma once

#include "engine/config_parser.h"
#include "mesh/mesh_load.h"

namespace morvex {

struct MeshPart;

// Builds the triangle list that a chunk of an imtxt describes, with a chunk made by the part's material, and sets
// the part's name. False if the text of the chunk is wrong.
bool ReadTextGeometry(const Nox::ConfigData& chunk, const MeshLoadContext& context, bool hardwareSkinned,
                      MeshPart& part);

}  // namespace morvex
