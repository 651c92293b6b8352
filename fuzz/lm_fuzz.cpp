#include "mesh/read_lod_mesh.h"
#include "mesh/write_mesh.h"
#include "mesh_round_trip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  RoundTrip<morvex::MorvexIndexedMeshLODDefinition>({data, size}, morvex::ReadLodMesh, morvex::SaveLodMesh);
  return 0;
}
