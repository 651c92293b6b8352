#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tagdata/kuid.h"

namespace morvex {

// New identities. The last one given out is the base, kept in settings/kuid.txt; its author is this installation's.

// The root, or "-foobar-" before the first ZEBSetRoot. True.
bool ZEBGetRoot(std::string& path);
std::string ZEBRoot();
// Stores the root and loads the base from settings/kuid.txt; a missing file gives the null KUID as base.
void ZEBSetRoot(std::string_view path);
void ZEBForgetRoot();

// Stores a base and its author. False for the null KUID, and if the file can't be written.
bool ZEBSetBaseKuid(const KUID& kuid);
// A KUID that the database doesn't know and that nobody got before. The null KUID if the author of the
// installation lies outside the valid range. Takes the ownership of the installation first, and reads the base
// again then, so that two tools never give out the same.
KUID ZEBGenerateKUID();
// Starts a new base if the author of the installation has changed.
void ZEBSyncBaseKuid();

int32_t ZEBLocalUser();
KUID ZEBBaseKuid();

}  // namespace morvex
