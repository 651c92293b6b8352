// The station house and the trackman's hut, by day and with lit windows by night.

#include "samples/make_meshes/models.h"

namespace samples {
namespace {

constexpr Nox::Colour kTiles = {0.5F, 0.2F, 0.14F, 1};
constexpr Nox::Colour kWood = {0.3F, 0.19F, 0.1F, 1};

struct Opening {
  float y, z;  // of its lower corner at the back
  float width, height;
};

// Frames in front of both long walls.
Shape Frames(const std::vector<Opening>& openings, float wall) {
  Shape shape;
  for (const Opening& o : openings) {
    for (const float x : {-wall - 0.05F, wall})
      shape.Box({x, o.y, o.z}, {x + 0.05F, o.y + o.width, o.z + o.height});
  }
  return shape;
}

// The panes alone, a little further out, for the night.
Shape Panes(const std::vector<Opening>& openings, float wall) {
  Shape shape(4);
  for (const Opening& o : openings) {
    const float x = wall + 0.06F, front = o.y + o.width, top = o.z + o.height;
    shape.Quad({x, o.y, o.z}, {x, front, o.z}, {x, front, top}, {x, o.y, top});
    shape.Quad({-x, front, o.z}, {-x, o.y, o.z}, {-x, o.y, top}, {-x, front, top});
  }
  return shape;
}

std::vector<Opening> StationWindows() {
  std::vector<Opening> windows;
  for (const float z : {1.2F, 4.2F}) {
    for (int i = 0; i < 4; ++i)
      windows.push_back({-4.2F + 2.4F * static_cast<float>(i), z, 0.9F, 1.4F});
  }
  return windows;
}

Model Station() {
  Shape walls(3), roof(2), shed, doors, chimneys;
  walls.Box({-3.5F, -5.2F, 0}, {3.5F, 5.2F, 6.4F});
  roof.Gable({-4.1F, -5.7F, 6.3F}, {4.1F, 5.7F, 8.9F});
  shed.Box({-2.6F, -10.4F, 0}, {2.6F, -5.2F, 3.2F});
  shed.Gable({-3.2F, -10.8F, 3.2F}, {3.2F, -5.2F, 4.8F});
  doors.Box({3.5F, 4.0F - 0.1F, 0}, {3.58F, 4.9F, 2.3F});
  doors.Box({2.6F, -8.8F, 0}, {2.68F, -6.8F, 2.5F});
  for (const float y : {-3.0F, 3.0F})
    chimneys.Box({-0.35F, y, 8.0F}, {0.35F, y + 0.7F, 9.7F});
  Model model;
  model.parts = {{Textured("wall", "wall.tga"), walls},
                 {Textured("chimney", "wall.tga"), chimneys},
                 {Plain("roof", kTiles), roof},
                 {Plain("shed", kWood), shed},
                 {Plain("door", {0.12F, 0.25F, 0.16F, 1}), doors},
                 {Plain("frame", {0.85F, 0.85F, 0.8F, 1}), Frames(StationWindows(), 3.5F)}};
  model.points = {{"a.name0", {3.6F, 0, 3.6F}, -90}, {"a.name1", {-3.6F, 0, 3.6F}, 90}};
  return model;
}

Model Lit(const std::vector<Opening>& windows, float wall) {
  Surface light = Textured("lit", "lit.bmp");
  light.glow = 1;
  return {{{light, Panes(windows, wall)}}};
}

std::vector<Opening> HutWindows() {
  return {{-1.6F, 1.0F, 0.8F, 1.0F}, {0.9F, 1.0F, 0.8F, 1.0F}};
}

Model Hut() {
  Shape walls(2), roof, chimney, door, well;
  walls.Box({-1.8F, -2.4F, 0}, {1.8F, 2.4F, 2.6F});
  roof.Gable({-2.2F, -2.8F, 2.55F}, {2.2F, 2.8F, 4.3F});
  chimney.Box({-0.25F, -1.5F, 3.6F}, {0.25F, -1.0F, 4.7F});
  door.Box({1.8F, -0.45F, 0}, {1.86F, 0.45F, 2.0F});
  well.Cylinder(Axis::kZ, {-3.4F, 1.6F, 0}, 0.8F, 0.6F);
  Model model;
  model.parts = {{Textured("fassade", "fassade.bmp"), walls},
                 {Plain("roof", kTiles), roof},
                 {Plain("chimney", {0.45F, 0.28F, 0.22F, 1}), chimney},
                 {Plain("door", kWood), door},
                 {Plain("well", {0.5F, 0.5F, 0.47F, 1}), well},
                 {Plain("frame", {0.9F, 0.9F, 0.85F, 1}), Frames(HutWindows(), 1.8F)}};
  return model;
}

}  // namespace

void AddBuildings(Files& files) {
  files["station_house/house.im"] = IndexedMesh(Station());
  files["station_house/night/house_lit.im"] = IndexedMesh(Lit(StationWindows(), 3.5F));
  files["bahnwaerterhaus/bahnwaerterhaus.im"] = IndexedMesh(Hut());
  files["bahnwaerterhaus/lit/lit.im"] = IndexedMesh(Lit(HutWindows(), 1.8F));
}

}  // namespace samples
