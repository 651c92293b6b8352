// The water crane, fixed and swivelling. The arm of the second hangs on a bone.

#include "samples/make_meshes/models.h"

namespace samples {
namespace {

const Bone kColumn = {"b.r.column", "", {0, 0, 0}};
const Bone kArm = {"b.r.arm", "b.r.column", {0, 0, 3.2F}};

Shape Column() {
  Shape shape;
  shape.Cylinder(Axis::kZ, {0, 0, 0}, 0.25F, 0.5F, 20);
  shape.Cone(Axis::kZ, {0, 0, 0.25F}, 2.9F, 0.24F, 0.17F, 20);
  shape.Cylinder(Axis::kZ, {0, 0, 3.15F}, 0.12F, 0.26F, 20);
  return shape;
}

Shape Arm() {
  Shape shape;
  shape.Cylinder(Axis::kZ, {0, 0, 3.27F}, 0.5F, 0.16F, 16);
  shape.Cylinder(Axis::kX, {0, 0, 3.6F}, 3.2F, 0.13F, 16);
  shape.Cone(Axis::kZ, {3.1F, 0, 2.9F}, 0.7F, 0.17F, 0.14F, 16);
  shape.Box({-0.9F, -0.14F, 3.48F}, {0, 0.14F, 3.72F});  // counterweight
  return shape;
}

Shape Lamp() {
  Shape shape;
  shape.Box({2.5F, -0.12F, 3.73F}, {2.74F, 0.12F, 4.05F});
  shape.Gable({2.46F, -0.16F, 4.05F}, {2.78F, 0.16F, 4.17F});
  return shape;
}

const Surface& Iron() {
  static const Surface kIron = Textured("iron", "iron.tga");
  return kIron;
}

Model FixedCrane() {
  Model model;
  model.parts = {{Iron(), Column()}, {Iron(), Arm()}};
  return model;
}

Model SwivellingCrane() {
  Surface red = Plain("lamp", {0.8F, 0.1F, 0.1F, 1});
  red.glow = 0.5F;
  Model model;
  model.parts = {{Iron(), Column()}, {Iron(), Arm(), kArm.name}, {red, Lamp(), kArm.name}};
  model.points = {{"a.water", {3.1F, 0, 2.9F}}};
  model.bones = {kColumn, kArm};
  return model;
}

}  // namespace

void AddWaterCranes(Files& files) {
  files["water_crane/water_crane.im"] = IndexedMesh(FixedCrane());
  files["water_crane_v2/crane/crane.im"] = IndexedMesh(SwivellingCrane());
  files["water_crane_v2/crane/swing.kin"] = Animation(3, {kColumn, kArm});
}

}  // namespace samples
