#pragma once

#include "engine/pstring.h"

// Names of tags that the room reads, interned once.
namespace QELLib {

// Keys of definitions
inline const Nox::PString kTopLevel("top-level");
inline const Nox::PString kInherit("inherit");
inline const Nox::PString kSubPossibilities("subpossibilities");
inline const Nox::PString kTagArray("tagarray");
inline const Nox::PString kArrayElement("array-element");
inline const Nox::PString kNumArray("numarray");
inline const Nox::PString kAnyName("anyname");
inline const Nox::PString kObsoleteTag("obsolete-tag");
inline const Nox::PString kValidation("validation");
inline const Nox::PString kKind("kind");
inline const Nox::PString kType("type");
inline const Nox::PString kCompulsory("compulsory");
inline const Nox::PString kDefault("default");
inline const Nox::PString kSource("source");
inline const Nox::PString kUnique("unique");
inline const Nox::PString kDataType("datatype");
inline const Nox::PString kCategory("category");
inline const Nox::PString kDisabled("disabled");
inline const Nox::PString kContainerType0("container-type0");
inline const Nox::PString kElementType("element-type");
inline const Nox::PString kIcon("icon");
inline const Nox::PString kSavingName("savingname");

// Sources of values that stand in the asset itself
inline const Nox::PString kAttachment("attachment");
inline const Nox::PString kMeshTable("mesh-table");
inline const Nox::PString kAttachedTrack("attached-track");
inline const Nox::PString kQueues("queues");

// Tags of configurations
inline const Nox::PString kAlias("alias");
inline const Nox::PString kAssetFileName("asset-filename");
inline const Nox::PString kAtt("att");
inline const Nox::PString kAttParent("att-parent");
inline const Nox::PString kCacheSoup(".cache");
inline const Nox::PString kDescription("description");
inline const Nox::PString kEffects("effects");
inline const Nox::PString kExtensions("extensions");
inline const Nox::PString kFile("file");
inline const Nox::PString kHeight("height");
inline const Nox::PString kLicense("license");
inline const Nox::PString kLights("lights");
inline const Nox::PString kMesh("mesh");
inline const Nox::PString kMorvexBuild("morvex-build");
inline const Nox::PString kName("name");
inline const Nox::PString kObsoleteTable("obsolete-table");
inline const Nox::PString kRegion("region");
inline const Nox::PString kScript("script");
inline const Nox::PString kSmoke("smoke");
inline const Nox::PString kStringTable("string-table");
inline const Nox::PString kUserName("username");

}  // namespace QELLib
