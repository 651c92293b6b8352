#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "engine/material.h"
#include "samples/make_meshes/shape.h"

namespace samples {

using Bytes = std::vector<std::uint8_t>;
// By their paths below the folder of the samples.
using Files = std::map<std::string, Bytes>;

struct Surface {
  std::string material;  // decorated, as in "boiler.m.onetex"
  Nox::Colour colour;
  std::vector<Nox::TextureDefinition> textures = {};
  float shine = 10;
  float glow = 0;  // how much of its colour it has without light
};

// A surface without a texture, and one with a texture in the first slot.
Surface Plain(std::string_view name, Nox::Colour colour);
Surface Textured(std::string_view name, std::string_view texture);

// What is drawn with one surface. With a bone, all of it moves with that bone.
struct Part {
  Surface surface;
  Shape shape;
  std::string bone = {};
};

struct Point {
  std::string name;
  Vector3 position;
  float heading = 0;  // degrees from straight ahead, to the left
};

struct Bone {
  std::string name;
  std::string parent;  // empty for the root
  Vector3 position;    // of the joint, in the model
};

struct Model {
  std::vector<Part> parts;
  std::vector<Point> points = {};
  std::vector<Bone> bones = {};  // each behind its parent
};

// One mesh, an .im.
Bytes IndexedMesh(const Model& model);
// Two levels of detail in one file, an .lm. They share the points and bones of the near one.
Bytes LodMesh(const Model& far, const Model& near);
// A movement of these bones, a .kin.
Bytes Animation(float seconds, const std::vector<Bone>& bones);
Bytes Text(std::string_view text);

}  // namespace samples
