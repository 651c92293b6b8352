#include "mesh/mesh_result.h"

#include <array>

namespace morvex {
namespace {

struct Entry {
  std::string_view name;
  std::string_view message;
};

constexpr std::array<Entry, RES_FAIL_CHUNK_CREATE + 1> kEntries = {{
    {},
    {"RES_UNKNOWN", "Unknown mesh load error"},
    {"RES_FILE_OPEN_ERROR", "Unable to open file"},
    {"RES_FILE_FORMAT_ERROR", "Unexpected file format"},
    {"RES_FILE_VERSION_ERROR", "Incompatible file version"},
    {"RES_NO_MATERIAL_MANAGER", "Unable to find material manager in Render Kernel"},
    {"RES_UNSUPPORTED_MATERIAL", "Unable to create requested material"},
    {"RES_UNKNOWN_MATERIAL", "Unable to find the type of a requested material"},
    {"RES_FAIL_CHUNK_CREATE", "Failed to create geometry chunk"},
}};

}  // namespace

std::string_view MeshResultName(MeshResult result) {
  return kEntries[result].name;
}

std::string_view MeshResultMessage(MeshResult result) {
  return kEntries[result].message;
}

}  // namespace morvex
