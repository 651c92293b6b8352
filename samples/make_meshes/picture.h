#pragma once

#include "samples/make_meshes/model.h"

namespace samples {

// Pictures of 64 by 64 pixels as .tga files, made to be laid side by side.
Bytes Planks();   // brown boards, upright
Bytes Masonry();  // grey blocks of stone
Bytes Plaster();  // white, with a grain
Bytes Panes();    // a lit window with bars
Bytes Rivets();   // a bump map: normals of a plate with rows of rivets

}  // namespace samples
