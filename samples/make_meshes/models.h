#pragma once

#include "samples/make_meshes/model.h"

namespace samples {

// The meshes, animations and pictures of the sample assets.
void AddLocomotive(Files& files);
void AddRunningGear(Files& files);
void AddTender(Files& files);
void AddBuildings(Files& files);
void AddWindmill(Files& files);
void AddTrack(Files& files);
void AddTurntable(Files& files);
void AddWaterCranes(Files& files);
void AddCab(Files& files);
// Those of samples/faulty, which are wrong on purpose.
void AddFaultyMeshes(Files& files);

}  // namespace samples
