#include "mesh/read_indexed_mesh.h"
#include "mesh/write_mesh.h"
#include "mesh_round_trip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  RoundTrip<morvex::MorvexIndexedMeshDefinition>({data, size}, morvex::ReadIndexedMesh,
                                                 morvex::SaveIndexedMesh);
  return 0;
}
