#pragma once

namespace morvex {

struct KUID;
class KUIDList;
class TagContainer;

// Appends to `list`, each once, what an asset needs: every KUID that a string or KUID tag of it mentions at any
// depth, but itself and what it makes obsolete.
void CollectDependencies(const TagContainer& soup, const KUID& ownKuid, KUIDList& list);

// Appends to `list`, each once, what an asset makes obsolete, and takes the asset itself out of it.
void CollectObsoletes(const TagContainer& soup, const KUID& ownKuid, KUIDList& list);

}  // namespace morvex
