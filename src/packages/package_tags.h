#pragma once

#include "engine/pstring.h"

// The names of a package's tags.
//
//   root:  assets            one child per asset, named by its KUID
//          contents-table    the KUIDs of these assets
//          kuid-table        the KUIDs that they need and that aren't among them
//          obsolete-table    the KUIDs that they make obsolete
//          kind              "archive"
//          package-version   1
//   asset: the tags of its configuration, and
//          compression       "LZSS", or absent for files as they are
//          files             its folder: a container per sub-folder, a binary tag per file, lowered names
//          dsid              optional fingerprint of `files`
//          folder-icon       optional, of the package alone
namespace morvex::PackageTags {

inline const Nox::PString kAssets("assets");
inline const Nox::PString kContentsTable("contents-table");
inline const Nox::PString kKuidTable("kuid-table");
inline const Nox::PString kObsoleteTable("obsolete-table");
inline const Nox::PString kKind("kind");
inline const Nox::PString kVersion("package-version");

inline const Nox::PString kKuid("kuid");
inline const Nox::PString kObsoletesKuid("obsoletes-kuid");
inline const Nox::PString kCompression("compression");
inline const Nox::PString kFiles("files");
inline const Nox::PString kDsid("dsid");
inline const Nox::PString kFolderIcon("folder-icon");
inline const Nox::PString kCache(".cache");

}  // namespace morvex::PackageTags

namespace morvex {

inline constexpr int kPackageVersion = 1;
// The value of `kind` in the root.
inline constexpr const char* kArchiveKind = "archive";
// The only coding of files there is: 4 bytes of plain size, then the coded stream.
inline constexpr const char* kLzssCompression = "LZSS";

}  // namespace morvex
