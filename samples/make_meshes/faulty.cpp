// Meshes that are wrong, or that their assets use wrongly.

#include "samples/make_meshes/models.h"

namespace samples {
namespace {

Model Shed(const Surface& walls) {
  Shape hull, roof;
  hull.Box({-1.5F, -2, 0}, {1.5F, 2, 2.2F});
  roof.Gable({-1.8F, -2.3F, 2.2F}, {1.8F, 2.3F, 3.4F});
  Model model;
  model.parts = {{walls, hull}, {Plain("roof", {0.3F, 0.3F, 0.32F, 1}), roof}};
  model.points = {{"a.door", {1.5F, 0, 1}, -90}};
  return model;
}

Surface OfMaterial(std::string_view material, std::vector<Nox::TextureDefinition> textures) {
  return {std::string(material), {1, 1, 1, 1}, std::move(textures)};
}

Bytes WithoutItsEnd(Bytes bytes) {
  bytes.resize(bytes.size() - 20);
  return bytes;
}

}  // namespace

void AddFaultyMeshes(Files& files) {
  const Bytes shed = IndexedMesh(Shed(Plain("walls", {0.5F, 0.45F, 0.4F, 1})));
  const auto add = [&](const char* path, Bytes bytes) {
    files[std::string("faulty/") + path] = std::move(bytes);
  };

  add("mesh_cut_short/shed.im", WithoutItsEnd(shed));
  add("mesh_of_velvet/shed.im", IndexedMesh(Shed(OfMaterial("walls.m.velvet", {}))));
  add("mesh_without_its_picture/shed.im", IndexedMesh(Shed(Textured("walls", "walls.tga"))));
  add("mesh_without_its_bump_map/shed.im",
      IndexedMesh(Shed(OfMaterial("walls.m.tbumptex", {{8, "walls_bump.tga", 1}}))));
  for (const char* path :
       {"level_not_there/shed.im", "levels_out_of_order/shed.im", "lamp_in_the_air/shed.im",
        "door_without_a_hinge/shed.im", "door_without_a_hinge/door.im", "name_board_nowhere/shed.im",
        "animation_that_is_none/shed.im"})
    add(path, shed);
}

}  // namespace samples
