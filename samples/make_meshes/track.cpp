// Track, and what belongs to it: a piece of rail, a level crossing with barriers, the lever of a junction.

#include <algorithm>

#include "samples/make_meshes/models.h"
#include "samples/make_meshes/picture.h"

namespace samples {
namespace {

constexpr float kRailHalf = 0.75F;  // from the middle to a rail's axis
constexpr Nox::Colour kSteel = {0.45F, 0.42F, 0.4F, 1};
constexpr Nox::Colour kWhite = {0.9F, 0.9F, 0.88F, 1};
constexpr Nox::Colour kRed = {0.75F, 0.1F, 0.08F, 1};

Shape Rails(float from, float to) {
  Shape shape;
  for (const float x : {-kRailHalf, kRailHalf}) {
    shape.Box({x - 0.06F, from, -0.14F}, {x + 0.06F, to, -0.12F});
    shape.Box({x - 0.01F, from, -0.12F}, {x + 0.01F, to, -0.03F});
    shape.Box({x - 0.03F, from, -0.03F}, {x + 0.03F, to, 0});
  }
  return shape;
}

Model LightRail() {
  Shape sleepers(2);
  for (int i = 0; i < 14; ++i) {
    const float y = 0.25F + 0.7F * static_cast<float>(i);
    sleepers.Box({-1.2F, y, -0.28F}, {1.2F, y + 0.22F, -0.14F});
  }
  Surface steel = Plain("rail", kSteel);
  steel.shine = 50;
  return {{{Textured("sleeper", "sleeper.tga"), sleepers}, {steel, Rails(0, 10)}}};
}

const Bone kRoot = {"b.r.root", "", {0, 0, 0}};
const std::vector<Bone> kBarriers = {{"b.r.barrier0", "b.r.root", {-3.2F, -3.4F, 1}},
                                     {"b.r.barrier1", "b.r.root", {3.2F, 3.4F, 1}}};

// A bar over the road, in red and white fields.
void AddBarrier(Model& model, const Bone& bone, float direction) {
  Shape white, red;
  for (int i = 0; i < 8; ++i) {
    const float from = bone.position.x + direction * 0.8F * static_cast<float>(i),
                to = from + direction * 0.8F;
    Shape& field = i % 2 == 0 ? red : white;
    field.Box({std::min(from, to), bone.position.y - 0.05F, 0.95F},
              {std::max(from, to), bone.position.y + 0.05F, 1.05F});
  }
  model.parts.push_back({Plain("white", kWhite), white, bone.name});
  model.parts.push_back({Plain("red", kRed), red, bone.name});
}

Model Crossing() {
  Shape road(2), posts;
  road.Box({-6, -2.5F, -0.3F}, {-kRailHalf - 0.1F, 2.5F, 0});
  road.Box({-kRailHalf + 0.1F, -2.5F, -0.3F}, {kRailHalf - 0.1F, 2.5F, 0});
  road.Box({kRailHalf + 0.1F, -2.5F, -0.3F}, {6, 2.5F, 0});
  Model model;
  model.bones = {kRoot, kBarriers[0], kBarriers[1]};
  for (const Bone& bone : kBarriers) {
    const Vector3 at = bone.position;
    posts.Box({at.x - 0.12F, at.y - 0.3F, 0}, {at.x + 0.12F, at.y - 0.06F, 1.2F});
  }
  model.parts = {{Textured("road", "planks.tga"), road},
                 {Plain("rail", kSteel), Rails(-6, 6)},
                 {Plain("post", {0.2F, 0.22F, 0.2F, 1}), posts}};
  AddBarrier(model, kBarriers[0], 1);
  AddBarrier(model, kBarriers[1], -1);
  model.points = {{"a.track0a", {0, -6, 0}, 180},
                  {"a.track0b", {0, 6, 0}},
                  {"a.road0a", {-6, 0, 0}, 90},
                  {"a.road0b", {6, 0, 0}, -90}};
  return model;
}

// The counterweight lies on the side to which the points are thrown.
Model Lever(float lean) {
  const Vector3 foot = {0, 0, 0.25F};
  Shape bed(1), lever;
  bed.Box({-0.6F, -0.35F, 0}, {0.6F, 0.35F, 0.12F});
  bed.Box({-0.12F, -0.12F, 0.12F}, {0.12F, 0.12F, 0.35F});
  lever.Cylinder(Axis::kZ, foot, 1.1F, 0.03F, 8);
  lever.Cylinder(Axis::kX, {-0.12F, 0, foot.z + 0.75F}, 0.24F, 0.18F, 16);
  lever.Turn(Axis::kY, foot, lean);
  Shape lamp;
  lamp.Box({-0.14F, 0.5F, 0}, {0.14F, 0.78F, 0.9F});
  return {
      {{Textured("bed", "planks.tga"), bed}, {Plain("lever", kWhite), lever}, {Plain("lamp", kSteel), lamp}}};
}

}  // namespace

void AddTrack(Files& files) {
  files["track_light_rail/rail.im"] = IndexedMesh(LightRail());

  const std::string crossing = "crossing_tramway/crossing/";
  files[crossing + "crossing.im"] = IndexedMesh(Crossing());
  files[crossing + "anim.kin"] = Animation(6, {kRoot, kBarriers[0], kBarriers[1]});
  files[crossing + "planks.tga"] = Planks();

  const std::string junction = "junction_lever/";
  files[junction + "Straight/Straight.im"] = IndexedMesh(Lever(-55));
  files[junction + "Straight/planks.tga"] = Planks();
  files[junction + "Diverging/Diverging.im"] = IndexedMesh(Lever(55));
  files[junction + "Diverging/planks.tga"] = Planks();
}

}  // namespace samples
