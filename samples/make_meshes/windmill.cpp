#include "samples/make_meshes/models.h"
#include "samples/make_meshes/picture.h"

namespace samples {
namespace {

const Bone kRoot = {"b.r.root", "", {0, 0, 0}};
const Bone kSails = {"b.r.sails", "b.r.root", {0, 2.6F, 8.4F}};

Shape Sails() {
  Shape shape;
  for (int i = 0; i < 4; ++i) {
    Shape sail;
    sail.Box({-0.08F, 2.7F, 8.4F}, {0.08F, 2.8F, 14.0F});
    sail.Box({0.08F, 2.72F, 9.6F}, {1.2F, 2.76F, 13.8F});
    sail.Turn(Axis::kY, kSails.position, 90.0F * static_cast<float>(i) + 20);
    shape.Add(sail);
  }
  shape.Cylinder(Axis::kY, kSails.position, 0.35F, 0.3F, 12);
  return shape;
}

Model Windmill() {
  Shape tower(2), cap, doors, axle;
  tower.Cone(Axis::kZ, {0, 0, 0}, 7.5F, 3.2F, 2.2F, 24);
  cap.Cone(Axis::kZ, {0, 0, 7.5F}, 1.2F, 2.35F, 1.9F, 24);
  cap.Cone(Axis::kZ, {0, 0, 8.7F}, 1.5F, 1.9F, 0, 24);
  axle.Cylinder(Axis::kY, {0, 1.0F, 8.4F}, 1.7F, 0.18F, 12);
  for (const float y : {-3.22F, 2.92F})
    doors.Box({-0.6F, y, 0}, {0.6F, y + 0.3F, 2.1F});
  const Surface wood = Textured("wood", "planks.tga");
  Model model;
  model.parts = {{Textured("tower", "plaster.tga"), tower},
                 {Textured("cap", "planks.tga"), cap},
                 {Plain("axle", {0.25F, 0.22F, 0.2F, 1}), axle},
                 {wood, doors},
                 {Textured("sails", "planks.tga"), Sails(), kSails.name}};
  model.points = {{"a.name0", {0, 3.3F, 2.5F}}, {"a.name1", {0, -3.3F, 2.5F}, 180}};
  model.bones = {kRoot, kSails};
  return model;
}

Model LitWindows() {
  Surface light = Textured("lit", "panes.tga");
  light.glow = 1;
  Shape panes(0.7F);
  for (const float side : {-1.0F, 1.0F}) {
    // The tower leans inwards, so the panes stand well in front of it.
    const float x = side * 2.95F;
    for (const float z : {2.6F, 4.7F}) {
      const float near = -side * 0.35F, far = side * 0.35F;
      panes.Quad({x, near, z}, {x, far, z}, {x, far, z + 0.7F}, {x, near, z + 0.7F});
    }
  }
  return {{{light, panes}}};
}

}  // namespace

void AddWindmill(Files& files) {
  const std::string folder = "windmill_hainfels/";
  files[folder + "windmill.im"] = IndexedMesh(Windmill());
  files[folder + "anim.kin"] = Animation(8, {kRoot, kSails});
  files[folder + "plaster.tga"] = Plaster();
  files[folder + "planks.tga"] = Planks();
  files[folder + "windmill_lit/windmill_lit.im"] = IndexedMesh(LitWindows());
  files[folder + "windmill_lit/panes.tga"] = Panes();
}

}  // namespace samples
