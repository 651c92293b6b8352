// A pit with four tracks at its rim, and the deck that turns in it.

#include "samples/make_meshes/models.h"
#include "samples/make_meshes/picture.h"

namespace samples {
namespace {

constexpr float kRadius = 9;
constexpr float kDepth = 1.4F;

Model TurntablePit() {
  Shape wall(3), floor;
  wall.Pit({0, 0, -kDepth}, kDepth, kRadius, 48);
  floor.Cylinder(Axis::kZ, {0, 0, -kDepth}, 0.12F, kRadius - 1, 48);
  Model model;
  model.parts = {{Textured("pit", "masonry.tga"), wall}, {Plain("floor", {0.4F, 0.36F, 0.3F, 1}), floor}};
  constexpr Vector3 kRim[] = {{0, kRadius, 0}, {-kRadius, 0, 0}, {0, -kRadius, 0}, {kRadius, 0, 0}};
  for (int i = 0; i < 4; ++i) {
    const Vector3 rim = kRim[i];
    const float heading = 90.0F * static_cast<float>(i);
    const std::string name = "a.otrack" + std::to_string(i);
    model.points.push_back({name + "a", rim, heading + 180});
    model.points.push_back({name + "b", {rim.x * 1.5F, rim.y * 1.5F, 0}, heading});
  }
  return model;
}

Model Deck() {
  Shape beams, planks(2), rails, hut;
  for (const float x : {-1.0F, 0.8F}) {
    beams.Box({x, 0.1F - kRadius, -0.9F}, {x + 0.2F, kRadius - 0.1F, -0.15F});
    rails.Box({x + 0.2F - 0.03F, 0.1F - kRadius, -0.12F}, {x + 0.2F, kRadius - 0.1F, 0});
  }
  planks.Box({-1.9F, 0.1F - kRadius, -0.15F}, {1.9F, kRadius - 0.1F, -0.12F});
  hut.Box({-1.85F, -0.7F, -0.12F}, {-1.1F, 0.7F, 2.0F});
  hut.Gable({-2.0F, -0.9F, 2.0F}, {-0.95F, 0.9F, 2.5F});
  Model model;
  model.parts = {{Plain("beam", {0.2F, 0.24F, 0.22F, 1}), beams},
                 {Textured("planks", "planks.tga"), planks},
                 {Plain("rail", {0.45F, 0.42F, 0.4F, 1}), rails},
                 {Textured("hut", "planks.tga"), hut}};
  model.points = {{"a.itrack0a", {0, 0.1F - kRadius, 0}, 180}, {"a.itrack0b", {0, kRadius - 0.1F, 0}}};
  return model;
}

}  // namespace

void AddTurntable(Files& files) {
  const std::string folder = "turntable_hainfels/";
  files[folder + "pit/pit.im"] = IndexedMesh(TurntablePit());
  files[folder + "pit/masonry.tga"] = Masonry();
  files[folder + "deck/deck.im"] = IndexedMesh(Deck());
  files[folder + "deck/planks.tga"] = Planks();
}

}  // namespace samples
