// Writes the meshes, animations and pictures of the sample assets into a folder that is laid out like samples/.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "samples/make_meshes/models.h"

namespace {

samples::Files AllFiles() {
  samples::Files files;
  samples::AddLocomotive(files);
  samples::AddRunningGear(files);
  samples::AddTender(files);
  samples::AddBuildings(files);
  samples::AddWindmill(files);
  samples::AddTrack(files);
  samples::AddTurntable(files);
  samples::AddWaterCranes(files);
  samples::AddCab(files);
  samples::AddFaultyMeshes(files);
  return files;
}

void Write(const std::filesystem::path& folder) {
  for (const auto& [path, bytes] : AllFiles()) {
    std::filesystem::create_directories((folder / path).parent_path());
    std::ofstream file(folder / path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) throw std::runtime_error("can't write " + (folder / path).string());
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "make_meshes <folder>\n";
    return 1;
  }
  try {
    Write(argv[1]);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
