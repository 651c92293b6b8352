#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// The tags, versions and marks of mesh files, for those who read and those who write them. The layouts stand
// at the top of the files that read them.
//
// A chunk is a tag of 4 bytes, u32 size, u32 version, then its fields. The size counts what stands behind the
// size field. All numbers are little-endian and nothing is aligned.
namespace morvex::MeshFormat {

using Tag = std::string_view;  // 4 bytes

inline constexpr Tag kWrapper = "JIRF";  // tag, u32 size, tag of the kind of file; no version
inline constexpr Tag kIndexedMesh = "IDXM";
inline constexpr Tag kLodMesh = "LODM";

inline constexpr Tag kInfo = "INFO";
inline constexpr Tag kPart = "CHNK";
inline constexpr Tag kMaterial = "MATL";
inline constexpr Tag kGeometry = "GEOM";
inline constexpr Tag kNeighbours = "NINF";
inline constexpr Tag kAttachments = "ATCH";
inline constexpr Tag kInfluences = "INFL";
inline constexpr Tag kSkeleton = "SKEL";
inline constexpr Tag kBone = "BONE";

inline constexpr Tag kMaterialTable = "MATT";
inline constexpr Tag kBoneTable = "BONT";
inline constexpr Tag kRootBones = "RBOT";
inline constexpr Tag kLevel = "MESH";
inline constexpr Tag kBindings = "LODB";
inline constexpr Tag kLevelPart = "LCHK";

// Most chunks have one version.
inline constexpr std::uint32_t kVersion = 100;
inline constexpr std::uint32_t kMaterialVersion = 103;  // as written
inline constexpr std::uint32_t kGeometryVersion = 201;  // as written
inline constexpr std::uint32_t kInfoVersion = 103;      // as written, of an .im

inline constexpr std::uint32_t kAxisFlag = 1;  // of a geometry's further flags

// The threshold of a level that is reached by name alone.
inline constexpr float kNamedOnly = -1.0F;

// Written behind the names of attachments that are left out from afar.
inline constexpr std::string_view kCullMark = ":Cull";

// The materials' fourth colour is stored as twice its value.
inline constexpr float kStoredColourScale = 2.0F;
inline constexpr float kMinPower = 10.0F;

}  // namespace morvex::MeshFormat
