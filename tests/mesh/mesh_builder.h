#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Bytes of mesh files, put together field by field: right as they stand, wrong where a test says so. Nothing of
// the readers or writers under test is used.
namespace mesh_builder {

std::string U32(std::uint32_t value);
std::string F32(std::vector<float> values);
// A padded string.
std::string PaddedText(std::string_view text);
// Tag, size, version, body.
std::string Chunk(std::string_view tag, std::uint32_t version, std::string_view body);
// The same with a size that is off by so much.
std::string ChunkOfSize(int off, std::string_view tag, std::uint32_t version, std::string_view body);
// "JIRF", size, kind, body.
std::string Wrapper(std::string_view kind, std::string_view body, int off = 0);

inline const std::vector<float> kNoTurn = {1, 0, 0, 0, 1, 0, 0, 0, 1};

struct Texture {
  std::uint32_t slot = 0;
  std::string name;
  float weight = 1;
};
struct Material {
  std::uint32_t version = 103;
  std::string name = "hull.m.onetex";
  std::uint32_t flag = 1;
  float opacity = 0.5;
  std::vector<float> colours = {.1F, .2F, .3F, .4F, .5F, .6F, .7F, .8F, .9F, 1, 1.5, 2};
  float power = 20;
  std::vector<Texture> textures = {};
  std::string Bytes() const;
};

// Vertex i has the position (i, 2i, 3i), and everything else that can be told from the rest.
struct Geometry {
  std::uint32_t version = 201;
  std::uint32_t format = 4;
  std::uint32_t vertices = 3;
  std::uint32_t faces = 1;
  std::uint32_t indices = 3;
  std::uint32_t faceNormals = 0;
  std::uint32_t textureSets = 1;
  std::uint32_t weights = 0;
  std::string name = "part";
  bool axis = false;
  float value = 7;
  std::string rest = {};  // at the end of the chunk
  int sizeOff = 0;

  // As an .im and an .lm have it.
  std::string Im() const;
  std::string Lm() const;

 private:
  std::string Bytes(bool hasName, bool hasTextureSets, bool hasColours) const;
};

std::string Neighbours(std::uint32_t faces);
std::string Attachments(const std::vector<std::string>& names);

struct Group {
  std::uint32_t part = 0;
  std::vector<std::uint32_t> vertices;
  float weight = 1;
};
struct Bone {
  std::string name;
  std::string parent;
  std::vector<Group> groups = {};
  // With the name of its parent, place and turn.
  std::string Bytes() const;
  // The number of groups, and the groups.
  std::string GroupBytes() const;
};

// Chunks of an .im.
std::string ImInfo(std::uint32_t parts, std::uint32_t version = 103, std::uint32_t influences = 1,
                   std::uint32_t matrices = 2);
std::string Part(const std::string& material, const std::string& geometry, const std::string& rest = {});
std::string Influences(const std::vector<Bone>& bones, int sizeOff = 0);
// Of one chain of bones named by their depth.
std::string BoneChain(int depth, std::uint32_t version = 100);
std::string BareBones(const std::string& bone);
// The whole file.
std::string Im(const std::vector<std::string>& parts, const std::string& behind = {});
// Of one part, and little else.
std::string SmallIm();
// With two parts, a skin, neighbours, textures and attachments.
std::string FullIm();

// Chunks of an .lm.
struct NamedLevel {
  std::uint32_t level = 0;
  std::string name;
  bool animated = false;
};
std::string LmInfo(std::uint32_t levels, const std::vector<NamedLevel>& names = {});
std::string MaterialTable(const std::vector<Material>& materials);
std::string BoneTable(std::string_view tag, const std::vector<Bone>& bones);
std::string Bindings(const std::vector<Bone>& bones);
std::string LevelPart(std::uint32_t material, const std::string& geometry, std::uint32_t number = 0);
std::string Level(float threshold, const std::vector<std::string>& parts, const std::string& bindings = {});
std::string Lm(const std::vector<std::string>& chunks);
std::string SmallLm();
std::string FullLm();

// A .kin that moves these bones.
std::string Kin(const std::vector<std::string>& bones, float seconds = 1);

}  // namespace mesh_builder
