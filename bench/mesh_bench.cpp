#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "engine/material_manager.h"
#include "engine/read_file.h"
#include "mesh/make_chunk.h"
#include "mesh/read_indexed_mesh.h"
#include "mesh/write_mesh.h"

// Loading a mesh of 10 MB from the disk, with its box and its attachments, beside reading the same file and adding
// up its floats.
namespace {

using namespace morvex;

constexpr std::size_t kFileBytes = 10'000'000;
constexpr std::uint32_t kVertices = 30'000;  // of a part; indices have 16 bits
constexpr std::uint32_t kFaces = 40'000;

const Nox::MaterialManager kMaterials;

MeshLoadContext Context() {
  MeshLoadContext context;
  context.materials = &kMaterials;
  context.resourceName = "bench/mesh.im";
  return context;
}

MeshPart MakePart() {
  MeshPart part;
  if (kMaterials.Create(part.material, "hull.m.onetex") != Nox::MaterialManager::Result::kMade) std::abort();
  GeometryHeader header;
  header.size = {.vertices = kVertices, .faces = kFaces, .indices = kFaces * 3};
  part.chunk = MakeChunk(header, Context(), false, *part.material);
  const Nox::Stream positions = part.chunk->GetStream(Nox::StreamId::kPosition);
  for (std::uint32_t i = 0; i < kVertices; ++i) {
    const Nox::Vector3 at = {static_cast<float>(i % 97), static_cast<float>(i % 89),
                             static_cast<float>(i % 83)};
    std::memcpy(positions.At(i), &at, sizeof at);
  }
  for (std::uint32_t i = 0; i < kFaces * 3; ++i)
    part.chunk->GetIndexArray()[i] = static_cast<std::uint16_t>(i % kVertices);
  return part;
}

// The name of a file on the disk, which goes with the program.
const std::string& MeshFile() {
  static const struct File {
    File() {
      MorvexIndexedMeshDefinition mesh;
      MeshLevel& level = AddLevel(mesh);
      std::vector<std::uint8_t> bytes;
      while (bytes.size() < kFileBytes) {
        level.parts.push_back(MakePart());
        bytes.clear();
        for (int i = 0; i < 10; ++i)
          mesh.attachments.push_back({Nox::PString("a.limb" + std::to_string(i)), {}, {}});
        if (SaveIndexedMesh(mesh, bytes) != RES_SUCCESS) std::abort();
      }
      std::FILE* const file = std::fopen(name.c_str(), "wb");
      if (file == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) std::abort();
      std::fclose(file);
    }
    ~File() { std::remove(name.c_str()); }
    const std::string name =
        (std::filesystem::temp_directory_path() / ("mesh_bench_" + std::to_string(getpid()) + ".im"))
            .string();
  } kFile;
  return kFile.name;
}

Nox::OwnedBytes ReadFile() {
  const auto bytes = Nox::ReadWholeFile({Nox::PString(), MeshFile()});
  if (!bytes) std::abort();
  return *bytes;
}

void BM_ReadAndAddUpFloats(benchmark::State& state) {
  std::size_t size = 0;
  for (auto _ : state) {
    const Nox::OwnedBytes bytes = ReadFile();
    float sum = 0;
    for (std::size_t i = 0; i + sizeof(float) <= bytes.Size(); i += sizeof(float)) {
      float value;
      std::memcpy(&value, bytes.Data() + i, sizeof value);
      sum += value;
    }
    benchmark::DoNotOptimize(sum);
    size = bytes.Size();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * size));
}
BENCHMARK(BM_ReadAndAddUpFloats)->Unit(benchmark::kMillisecond);

void BM_ReadAlone(benchmark::State& state) {
  std::size_t size = 0;
  for (auto _ : state)
    size = ReadFile().Size();
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * size));
}
BENCHMARK(BM_ReadAlone)->Unit(benchmark::kMillisecond);

std::size_t HeapBytes() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void BM_LoadIndexedMesh(benchmark::State& state) {
  std::size_t size = 0;
  std::size_t held = 0;
  for (auto _ : state) {
    const std::size_t before = HeapBytes();
    const Nox::OwnedBytes bytes = ReadFile();
    MorvexIndexedMeshDefinition mesh;
    if (ReadIndexedMesh(mesh, bytes, MeshFile(), Context()) != RES_SUCCESS) std::abort();
    benchmark::DoNotOptimize(mesh.box.max.x);
    size = bytes.Size();
    held = HeapBytes() - before;
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * size));
  // With the file itself, which is still held here.
  state.counters["memory/file"] = static_cast<double>(held) / static_cast<double>(size);
}
BENCHMARK(BM_LoadIndexedMesh)->Unit(benchmark::kMillisecond);

}  // namespace
