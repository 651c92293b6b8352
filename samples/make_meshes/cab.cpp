// The cab from inside: the back of the boiler with its fire door, and the two things that move on it.

#include "samples/make_meshes/models.h"
#include "samples/make_meshes/picture.h"

namespace samples {
namespace {

constexpr Nox::Colour kBrass = {0.72F, 0.55F, 0.2F, 1};
constexpr Nox::Colour kBlack = {0.07F, 0.07F, 0.08F, 1};

Shape Gauges() {
  Shape shape;
  for (const float x : {-0.45F, 0.0F, 0.45F})
    shape.Cylinder(Axis::kY, {x, -0.08F, 2.35F}, 0.1F, 0.14F, 20);
  return shape;
}

Model Cab() {
  Shape boiler, floor(1), walls(2), fire, gauges = Gauges();
  boiler.Cylinder(Axis::kY, {0, 0, 1.4F}, 0.8F, 0.88F, 28);
  boiler.Box({-0.75F, 0, 0}, {0.75F, 0.8F, 1.2F});
  floor.Box({-1.4F, -2.2F, -0.08F}, {1.4F, 0.8F, 0});
  walls.Box({-1.45F, -2.2F, 0}, {-1.38F, 0.8F, 1.3F});
  walls.Box({1.38F, -2.2F, 0}, {1.45F, 0.8F, 1.3F});
  walls.Box({-1.45F, 0.8F, 0}, {1.45F, 0.86F, 2.9F});
  walls.Box({-1.5F, -2.3F, 2.9F}, {1.5F, 0.9F, 2.96F});
  for (const float x : {-1.2F, 0.75F})
    walls.Box({x, -1.9F, 0.45F}, {x + 0.45F, -1.45F, 0.55F});  // seats
  fire.Box({-0.28F, -0.05F, 0.7F}, {0.28F, 0, 1.05F});
  Surface brass = Plain("brass", kBrass);
  brass.shine = 60;
  Surface glow = Plain("fire", {0.9F, 0.35F, 0.05F, 1});
  glow.glow = 0.7F;
  Model model;
  model.parts = {{Plain("boiler", kBlack), boiler},
                 {Textured("floor", "planks.tga"), floor},
                 {Plain("walls", {0.32F, 0.38F, 0.3F, 1}), walls},
                 {glow, fire},
                 {brass, gauges}};
  model.points = {{"a.regulator", {0.1F, -0.05F, 1.9F}}, {"a.pressure", {0, -0.1F, 2.35F}}};
  return model;
}

Model Regulator() {
  Shape shape;
  shape.Cylinder(Axis::kY, {0, -0.1F, 0}, 0.1F, 0.05F, 12);
  shape.Box({-0.025F, -0.1F, -0.03F}, {0.5F, -0.06F, 0.03F});
  shape.Cylinder(Axis::kY, {0.5F, -0.2F, 0}, 0.16F, 0.035F, 12);
  return {{{Plain("lever", {0.6F, 0.1F, 0.08F, 1}), shape}}};
}

Model Needle() {
  Shape shape;
  shape.Box({-0.006F, -0.01F, -0.03F}, {0.006F, 0, 0.11F});
  return {{{Plain("needle", {0.05F, 0.05F, 0.05F, 1}), shape}}};
}

}  // namespace

void AddCab(Files& files) {
  const std::string folder = "cab_vs41/";
  files[folder + "cab/cab.im"] = IndexedMesh(Cab());
  files[folder + "cab/planks.tga"] = Planks();
  files[folder + "regulator/regulator.im"] = IndexedMesh(Regulator());
  files[folder + "needle/needle.im"] = IndexedMesh(Needle());
}

}  // namespace samples
