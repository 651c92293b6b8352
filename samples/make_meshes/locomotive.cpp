// The locomotive VS 41: the body in two levels of detail, and what stands in the cab, whose levels are files of
// their own.

#include "samples/make_meshes/models.h"
#include "samples/make_meshes/picture.h"

namespace samples {
namespace {

constexpr Nox::Colour kRed = {0.62F, 0.09F, 0.07F, 1};
constexpr Nox::Colour kBlack = {0.14F, 0.14F, 0.15F, 1};
constexpr Nox::Colour kWood = {0.35F, 0.25F, 0.16F, 1};
constexpr Nox::Colour kLamp = {1, 0.93F, 0.7F, 1};
constexpr Vector3 kBoiler = {0, -3.4F, 2.85F};

Surface BoilerPlate() {
  Surface surface = Textured("boiler", "boiler_matt.texture");
  surface.material = "boiler.m.tbumptex";
  surface.textures.push_back({8, "rivets.tga", 1});
  return surface;
}

Shape Boiler(int sides) {
  Shape shape;
  shape.Cylinder(Axis::kY, kBoiler, 6.9F, 0.88F, sides);
  shape.Cylinder(Axis::kY, {0, 3.5F, kBoiler.z}, 1.9F, 0.92F, sides);
  shape.Cone(Axis::kY, {0, 5.4F, kBoiler.z}, 0.16F, 0.8F, 0.55F, sides);
  shape.Cone(Axis::kZ, {0, 4.4F, 3.7F}, 0.55F, 0.26F, 0.32F, sides);
  return shape;
}

Shape Domes() {
  Shape shape;
  for (const float y : {0.8F, 2.4F}) {
    shape.Cylinder(Axis::kZ, {0, y, 3.55F}, 0.4F, 0.42F);
    shape.Cone(Axis::kZ, {0, y, 3.95F}, 0.16F, 0.42F, 0.2F);
  }
  shape.Cylinder(Axis::kZ, {0, -1.2F, 3.6F}, 0.45F, 0.09F, 8);  // whistle
  return shape;
}

Shape Frame() {
  Shape shape;
  shape.Box({-0.55F, -5.7F, 0.9F}, {0.55F, 5.7F, 1.35F});
  for (const float y : {-5.9F, 5.7F})
    shape.Box({-1.4F, y, 0.9F}, {1.4F, y + 0.2F, 1.4F});
  return shape;
}

Shape Fittings() {
  Shape shape;
  shape.Box({-1.45F, -3.4F, 1.75F}, {1.45F, 5.4F, 1.82F});  // running boards
  for (const float x : {-1.15F, 1.15F})
    shape.Cylinder(Axis::kY, {x, 3.9F, 1.15F}, 1.1F, 0.38F);  // cylinders
  for (const float x : {-0.9F, 0.9F}) {
    shape.Cylinder(Axis::kY, {x, 5.9F, 1.15F}, 0.3F, 0.08F, 8);
    shape.Cylinder(Axis::kY, {x, 6.2F, 1.15F}, 0.06F, 0.22F);
  }
  for (const float x : {-1.0F, 1.0F})
    shape.Cylinder(Axis::kY, {x, -3.2F, 3.2F}, 6.2F, 0.03F, 6);  // hand rails
  return shape;
}

Shape Lamps() {
  Shape shape;
  for (const float x : {-1.0F, 1.0F})
    shape.Cylinder(Axis::kY, {x, 5.4F, 1.98F}, 0.16F, 0.15F, 12);
  shape.Cylinder(Axis::kY, {0, 5.4F, 3.86F}, 0.14F, 0.12F, 12);
  return shape;
}

Shape CabWalls() {
  Shape shape;
  for (const float x : {-1.45F, 1.38F}) {
    shape.Box({x, -5.6F, 1.35F}, {x + 0.07F, -3.4F, 2.7F});
    shape.Box({x, -5.6F, 2.7F}, {x + 0.07F, -5.2F, 3.6F});
    shape.Box({x, -3.8F, 2.7F}, {x + 0.07F, -3.4F, 3.6F});
  }
  shape.Box({-1.38F, -3.46F, 1.35F}, {1.38F, -3.4F, 3.6F});
  return shape;
}

Shape CabRoof() {
  Shape shape;
  shape.Box({-1.55F, -5.9F, 3.6F}, {1.55F, -3.2F, 3.68F});
  shape.Gable({-1.55F, -5.9F, 3.68F}, {1.55F, -3.2F, 3.95F});
  return shape;
}

Model NearBody() {
  Surface lamp = Plain("lamp", kLamp);
  lamp.glow = 0.6F;
  Surface paint = Plain("paint", kBlack);
  paint.shine = 40;
  Model model;
  model.parts = {
      {BoilerPlate(), Boiler(24)},         {paint, Domes()}, {Plain("frame", kRed), Frame()},
      {Plain("iron", kBlack), Fittings()}, {lamp, Lamps()},  {Textured("cab", "boiler.tga"), CabWalls()},
      {Plain("roof", kBlack), CabRoof()}};
  model.points = {{"a.limfront", {0, 6.26F, 1}},     {"a.limback", {0, -5.9F, 1}, 180},
                  {"a.bog0", {0, 2.6F, 0}},          {"a.bog1", {0, -2.6F, 0}},
                  {"a.light0", {0, 5.6F, 3.86F}},    {"a.smoke0", {0, 4.4F, 4.25F}},
                  {"a.steam0", {1.15F, 5.0F, 0.8F}}, {"a.driver0", {0.8F, -4.6F, 1.8F}}};
  return model;
}

Model FarBody() {
  Shape cab;
  cab.Box({-1.45F, -5.6F, 1.35F}, {1.45F, -3.4F, 3.7F});
  Model model;
  model.parts = {
      {BoilerPlate(), Boiler(6)}, {Plain("frame", kRed), Frame()}, {Textured("cab", "boiler.tga"), cab}};
  return model;
}

Shape CabFloor() {
  Shape shape;
  shape.Box({-1.38F, -5.6F, 1.35F}, {1.38F, -3.46F, 1.45F});
  return shape;
}

Model NearCab() {
  Shape seats, brake;
  for (const float x : {-1.2F, 0.75F})
    seats.Box({x, -5.2F, 1.95F}, {x + 0.45F, -4.75F, 2.05F});
  brake.Cylinder(Axis::kZ, {-0.9F, -3.8F, 1.45F}, 1.1F, 0.05F, 8);
  brake.Cylinder(Axis::kZ, {-0.9F, -3.8F, 2.55F}, 0.06F, 0.25F);
  Model model;
  model.parts = {
      {Plain("floor", kWood), CabFloor()}, {Plain("seats", kWood), seats}, {Plain("brake", kRed), brake}};
  return model;
}

Model FarCab() {
  return {{{Plain("floor", kWood), CabFloor()}}};
}

}  // namespace

void AddLocomotive(Files& files) {
  const std::string folder = "loco_vs41/vs41_body/";
  files[folder + "vs41_body.lm"] = LodMesh(FarBody(), NearBody());
  files[folder + "rivets.tga"] = Rivets();
  files[folder + "vs41_cab_near.im"] = IndexedMesh(NearCab());
  files[folder + "vs41_cab_far.im"] = IndexedMesh(FarCab());
}

}  // namespace samples
