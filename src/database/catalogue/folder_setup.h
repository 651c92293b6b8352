#pragma once

#include <string_view>

namespace morvex {

// Before ZEBInit: stores the root for all that asks for it, makes the folders of an installation, empties the
// scratch folders, and mounts the packs that stay mounted for the run. What fails is passed over.
void ZEBPrepareFolders(std::string_view root);

// After ZEBShutdown: releases those packs.
void ZEBReleaseFolders();

}  // namespace morvex
