// What runs under the locomotive and behind it: wheels that turn, a bogey, the tender.

#include "samples/make_meshes/models.h"

namespace samples {
namespace {

constexpr float kTrackHalf = 0.72F;  // from the middle to the running face of a rail

// Two wheels on an axle.
Shape Axle(float y, float radius) {
  Shape shape;
  shape.Cylinder(Axis::kX, {-kTrackHalf, y, radius}, 2 * kTrackHalf, 0.08F, 8);
  for (const float side : {-1.0F, 1.0F}) {
    const float tread = side < 0 ? -kTrackHalf - 0.13F : kTrackHalf;
    const float flange = side < 0 ? -kTrackHalf : kTrackHalf - 0.03F;
    shape.Cylinder(Axis::kX, {tread, y, radius}, 0.13F, radius, 24);
    shape.Cylinder(Axis::kX, {flange, y, radius}, 0.03F, radius + 0.03F, 24);
  }
  return shape;
}

// The rods that couple the wheels of one side, with a pin on each.
Shape Rods(float x, const std::vector<float>& axles, float radius) {
  Shape shape;
  const float height = radius - 0.28F;
  shape.Box({x - 0.03F, axles.front() - 0.12F, height - 0.06F},
            {x + 0.03F, axles.back() + 0.12F, height + 0.06F});
  for (const float y : axles)
    shape.Cylinder(Axis::kX, {x - 0.06F, y, height}, 0.12F, 0.09F, 10);
  return shape;
}

Model DrivingWheels() {
  const float radius = 0.7F;
  const std::vector<float> axles = {-3.0F, -1.5F, 0, 1.5F, 3.0F};
  Surface steel = Plain("rods", {0.7F, 0.7F, 0.72F, 1});
  steel.material = "rods.m.tglossrust";
  steel.shine = 60;
  Model model;
  model.bones = {{"b.r.root", "", {0, 0, radius}}};
  for (size_t i = 0; i < axles.size(); ++i) {
    const std::string bone = "b.r.wheel" + std::to_string(i);
    model.bones.push_back({bone, "b.r.root", {0, axles[i], radius}});
    model.parts.push_back({Textured("wheel", "wheel.tga"), Axle(axles[i], radius), bone});
  }
  for (const char* side : {"l", "r"}) {
    const float x = *side == 'l' ? -0.95F : 0.95F;
    const std::string bone = std::string("b.rod.") + side;
    model.bones.push_back({bone, "b.r.root", {x, 0, radius - 0.28F}});
    model.parts.push_back({steel, Rods(x, axles, radius), bone});
  }
  return model;
}

Shape BogeyFrame() {
  Shape shape;
  for (const float x : {-1.05F, 0.95F}) {
    shape.Box({x, -1.9F, 0.45F}, {x + 0.1F, 1.9F, 0.85F});
    for (const float y : {-1.4F, 0.0F, 1.4F})
      shape.Box({x - 0.02F, y - 0.22F, 0.3F}, {x + 0.12F, y + 0.22F, 0.6F});  // axle boxes
    for (const float y : {-0.7F, 0.7F})
      shape.Box({x, y - 0.45F, 0.86F}, {x + 0.1F, y + 0.45F, 0.93F});  // leaf springs
  }
  shape.Box({-0.95F, -0.25F, 0.55F}, {0.95F, 0.25F, 0.85F});
  shape.Cylinder(Axis::kZ, {0, 0, 0.85F}, 0.1F, 0.3F);
  return shape;
}

Model Bogey() {
  const float radius = 0.625F;
  const Surface steel = Textured("steel", "steel.tga");
  Model model;
  model.parts = {{steel, BogeyFrame()}};
  model.bones = {{"b.r.root", "", {0, 0, radius}}};
  int number = 0;
  for (const float y : {-1.4F, 0.0F, 1.4F}) {
    const std::string bone = "b.r.wheel" + std::to_string(number++);
    model.bones.push_back({bone, "b.r.root", {0, y, radius}});
    model.parts.push_back({steel, Axle(y, radius), bone});
  }
  model.points = {{"a.pivot", {0, 0, 0.95F}}};
  return model;
}

Shape TenderHull() {
  Shape shape;
  shape.Box({-1.45F, -4.0F, 1.1F}, {1.45F, 3.9F, 2.9F});
  for (const float x : {-1.45F, 1.38F})
    shape.Box({x, -1.0F, 2.9F}, {x + 0.07F, 3.6F, 3.35F});
  shape.Box({-1.38F, -1.0F, 2.9F}, {1.38F, -0.93F, 3.35F});
  shape.Cylinder(Axis::kZ, {0, -2.6F, 2.9F}, 0.25F, 0.35F);  // water filler
  return shape;
}

Model Tender() {
  Shape frame, coal;
  frame.Box({-1.2F, -4.2F, 0.85F}, {1.2F, 4.1F, 1.1F});
  coal.Gable({-1.38F, -0.9F, 2.95F}, {1.38F, 3.5F, 3.7F});
  Model model;
  model.parts = {{Textured("hull", "hull.tga"), TenderHull()},
                 {Plain("frame", {0.62F, 0.09F, 0.07F, 1}), frame},
                 {Plain("coal", {0.05F, 0.05F, 0.05F, 1}), coal}};
  model.points = {{"a.limfront", {0, 4.1F, 1}},
                  {"a.limback", {0, -4.2F, 1}, 180},
                  {"a.bog0", {0, 2.2F, 0}},
                  {"a.bog1", {0, -2.2F, 0}}};
  return model;
}

}  // namespace

void AddRunningGear(Files& files) {
  const Model wheels = DrivingWheels(), bogey = Bogey();
  files["loco_vs41/vs41_wheels/vs41_wheels.im"] = IndexedMesh(wheels);
  files["loco_vs41/vs41_wheels/anim.kin"] = Animation(2, wheels.bones);
  files["bogey_vs41_3axle/bogey_3axle/bogey_3axle.im"] = IndexedMesh(bogey);
  files["bogey_vs41_3axle/bogey_3axle/anim.kin"] = Animation(2, bogey.bones);
}

void AddTender(Files& files) {
  files["tender_vs41/tender_body/tender_body.im"] = IndexedMesh(Tender());
}

}  // namespace samples
