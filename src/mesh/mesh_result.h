#pragma once

#include <cstdint>
#include <string_view>

namespace morvex {

// What comes of loading or saving a mesh.
enum [[nodiscard]] MeshResult : std::uint32_t{
    RES_SUCCESS = 0,          RES_UNKNOWN,
    RES_FILE_OPEN_ERROR,      RES_FILE_FORMAT_ERROR,
    RES_FILE_VERSION_ERROR,   RES_NO_MATERIAL_MANAGER,
    RES_UNSUPPORTED_MATERIAL, RES_UNKNOWN_MATERIAL,
    RES_FAIL_CHUNK_CREATE,
};

// "RES_UNKNOWN" and so on; both are empty for success.
std::string_view MeshResultName(MeshResult result);
std::string_view MeshResultMessage(MeshResult result);

}  // namespace morvex
