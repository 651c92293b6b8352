#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Bytes of mesh files, put together field by field: right as they stand, wrong where a test says so. Nothing of
// the readers or writers under test is used.
namespace mesh_builder {

inline std::string U32(std::uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8)
    bytes += static_cast<char>(value >> shift);
  return bytes;
}

inline std::string U16(std::uint32_t value) {
  return U32(value).substr(0, 2);
}

inline std::string Count(std::size_t count) {
  return U32(static_cast<std::uint32_t>(count));
}

inline std::string F32(const std::vector<float>& values) {
  std::string bytes;
  for (const float value : values)
    bytes += U32(std::bit_cast<std::uint32_t>(value));
  return bytes;
}

// A padded string.
inline std::string PaddedText(std::string_view text) {
  return Count(text.size()) + std::string(text) + std::string((4 - text.size() % 4) % 4, '\0');
}

// Tag, size, version, body; the size may be off by so much.
inline std::string Chunk(std::string_view tag, std::uint32_t version, std::string_view body, int off = 0) {
  return std::string(tag) + Count(body.size() + 4 + static_cast<std::size_t>(off)) + U32(version) +
         std::string(body);
}

// "JIRF", size, kind, body.
inline std::string Wrapper(std::string_view kind, std::string_view body, int off = 0) {
  return "JIRF" + Count(body.size() + 4 + static_cast<std::size_t>(off)) + std::string(kind) +
         std::string(body);
}

// What `bytesOf` makes of each.
template <typename Things, typename BytesOf>
std::string Joined(const Things& things, const BytesOf& bytesOf) {
  std::string all;
  for (const auto& thing : things)
    all += bytesOf(thing);
  return all;
}
inline std::string Joined(const std::vector<std::string>& pieces) {
  return Joined(pieces, [](const std::string& piece) { return piece; });
}

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

  std::string Bytes() const {
    return Chunk("MATL", version,
                 PaddedText(name) + U32(1) + PaddedText("key") + PaddedText("value") + U32(flag) +
                     F32({opacity}) + F32(colours) + F32({power}) + Count(textures.size()) +
                     Joined(textures, [](const Texture& texture) {
                       return U32(texture.slot) + PaddedText(texture.name) + F32({texture.weight});
                     }));
  }
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
  std::string Im() const {
    return Bytes(version >= 200, version >= 103 && version < 200, version >= 104 && version < 200);
  }
  std::string Lm() const { return Bytes(version >= 103, false, false); }

 private:
  std::string Bytes(bool hasName, bool hasTextureSets, bool hasColours) const {
    std::string body = U32(format);
    if (version >= 201) body += U32(axis ? 1 : 0);
    body += F32({value}) + U32(vertices) + U32(faces) + U32(indices) + U32(faceNormals);
    if (hasTextureSets) body += U32(textureSets);
    if (version >= 102) body += U32(weights);
    if (hasName) body += PaddedText(name);
    const std::uint32_t sets = hasTextureSets ? textureSets : 1;
    for (std::uint32_t i = 0; i < vertices; ++i) {
      const auto at = static_cast<float>(i);
      body += F32({at, 2 * at, 3 * at});
      for (std::uint32_t set = 0; set < sets; ++set)
        body += F32({at + 10 * static_cast<float>(set), 0.5});
    }
    for (std::uint32_t i = 0; i < indices; ++i)
      body += U16(i % 3);
    for (std::uint32_t i = 0; i < vertices; ++i)
      body += F32({0, static_cast<float>(i), 1});
    for (std::uint32_t i = 0; hasColours && i < vertices; ++i)
      body += U32(0xFF000000 + i);
    for (std::uint32_t i = 0; i < faceNormals; ++i)
      body += F32({static_cast<float>(i), 5, 6});
    for (std::uint32_t i = 0; axis && i < vertices; ++i)
      body += F32({static_cast<float>(i), 8, 9});
    return Chunk("GEOM", version, body + rest, sizeOff);
  }
};

inline std::string Neighbours(std::uint32_t faces) {
  std::string records;
  for (std::uint32_t i = 0; i < faces * 3; ++i)
    records += U32(i + 100);
  return Chunk("NINF", 100, records);
}

inline std::string Attachments(const std::vector<std::string>& names) {
  std::string body = Count(names.size());
  for (std::size_t i = 0; i < names.size(); ++i)
    body += PaddedText(names[i]) + F32(kNoTurn) + F32({static_cast<float>(i), 1, 2});
  return Chunk("ATCH", 100, body);
}

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
  std::string Bytes() const {
    return PaddedText(name) + PaddedText(parent) + F32({static_cast<float>(name.size()), 0, 0}) +
           F32(kNoTurn);
  }
  // The number of groups, and the groups.
  std::string GroupBytes() const {
    return Count(groups.size()) + Joined(groups, [](const Group& group) {
             return U32(group.part) + Count(group.vertices.size()) +
                    Joined(group.vertices, [&](std::uint32_t vertex) {
                      return U32(vertex) + F32({group.weight, 1, 2, 3});
                    });
           });
  }
};

// Chunks of an .im.
inline std::string ImInfo(std::uint32_t parts, std::uint32_t version = 103, std::uint32_t influences = 1,
                          std::uint32_t matrices = 2) {
  std::string body = F32({1, 2, 3}) + F32({0, 0, 0, 1}) + U32(parts);
  if (version >= 102) body += U32(influences) + U32(matrices);
  if (version == 104) body += F32({-9, -9, -9, 9, 9, 9});
  return Chunk("INFO", version, body);
}

inline std::string Part(const std::string& material, const std::string& geometry,
                        const std::string& rest = {}) {
  return Chunk("CHNK", 100, U32(0) + material + geometry + rest);
}

inline std::string Influences(const std::vector<Bone>& bones, int sizeOff = 0) {
  return Chunk(
      "INFL", 100,
      Count(bones.size()) + Joined(bones, [](const Bone& bone) { return bone.Bytes() + bone.GroupBytes(); }),
      sizeOff);
}

// Of one chain of bones named by their depth. A bone's size counts all bones below it.
inline std::string BoneChain(int depth, std::uint32_t version = 100) {
  std::vector<std::string> bodies;
  std::size_t size = 0;
  for (int i = 0; i < depth; ++i) {
    bodies.push_back(U32(version) + PaddedText(std::to_string(i)) + F32({static_cast<float>(i), 0, 0}) +
                     F32({0, 0, 0, 1}) + U32(i + 1 < depth ? 1 : 0));
    size += 8 + bodies.back().size();
  }
  return Joined(bodies, [&size](const std::string& body) {
    const std::string bone = "BONE" + Count(size - 8) + body;
    size -= 8 + body.size();
    return bone;
  });
}

inline std::string BareBones(const std::string& bone) {
  return Chunk("SKEL", 100, bone);
}

// The whole file.
inline std::string Im(const std::vector<std::string>& parts, const std::string& behind = {}) {
  return Wrapper("IDXM", ImInfo(static_cast<std::uint32_t>(parts.size())) + Joined(parts) + behind);
}

// Of one part, and little else.
inline std::string SmallIm() {
  return Im({Part(Material{}.Bytes(), Geometry{}.Im())});
}

// With two parts, a skin, neighbours, textures and attachments.
inline std::string FullIm() {
  const Material first = {.textures = {{0, "old/place/hull.texture", 1}, {8, "bump.tga", 0.5}}};
  const Geometry axis = {.faces = 2, .indices = 6, .faceNormals = 2, .weights = 1, .axis = true};
  return Im(
      {Part(first.Bytes(), axis.Im(), Neighbours(2)),
       Part(Material{.name = "glass.m.notex"}.Bytes(), Geometry{}.Im())},
      Influences({{"root", "", {{0, {0, 1}}, {1, {2}}}}, {"arm", "root", {{0, {2}}}}, {"idle", "root"}}) +
          Attachments({"a.front", "door"}));
}

// Chunks of an .lm.
struct NamedLevel {
  std::uint32_t level = 0;
  std::string name;
  bool animated = false;
};
inline std::string LmInfo(std::uint32_t levels, const std::vector<NamedLevel>& names = {}) {
  return Chunk("INFO", 100,
               F32({1, 2, 3}) + F32({0, 0, 0, 1}) + U32(levels) + U32(2) + F32({10, 11, 12, 13, 14}) +
                   Count(names.size()) + Joined(names, [](const NamedLevel& named) {
                     return U32(named.level) + PaddedText(named.name) + (named.animated ? '\1' : '\0');
                   }));
}

inline std::string MaterialTable(const std::vector<Material>& materials) {
  return Chunk("MATT", 100,
               Count(materials.size()) + Joined(materials, [](const Material& one) { return one.Bytes(); }));
}

inline std::string BoneTable(std::string_view tag, const std::vector<Bone>& bones) {
  return Chunk(tag, 100, Count(bones.size()) + Joined(bones, [](const Bone& bone) { return bone.Bytes(); }));
}

inline std::string Bindings(const std::vector<Bone>& bones) {
  return Chunk("LODB", 100, Joined(bones, [](const Bone& bone) { return bone.GroupBytes(); }));
}

inline std::string LevelPart(std::uint32_t material, const std::string& geometry, std::uint32_t number = 0) {
  return Chunk("LCHK", 100, U32(number) + U32(material) + geometry);
}

inline std::string Level(float threshold, const std::vector<std::string>& parts,
                         const std::string& bindings = {}) {
  return Chunk("MESH", 100,
               Count(parts.size()) + U32(1) + U32(2) + F32({threshold}) + bindings + Joined(parts));
}

inline std::string Lm(const std::vector<std::string>& chunks) {
  return Wrapper("LODM", Joined(chunks));
}

inline std::string SmallLm() {
  return Lm({LmInfo(1), MaterialTable({Material{}}), Level(0.5, {LevelPart(0, Geometry{}.Lm())})});
}

inline std::string FullLm() {
  const Material textured = {.name = "glass.m.notex", .textures = {{0, "glass.texture", 1}}};
  const Geometry large = {.vertices = 5, .axis = true};
  const std::vector<Bone> near = {{"root", "", {{0, {0, 1}}}}, {"arm", "root", {{1, {4}}}}};
  const std::vector<Bone> far = {{"root", "", {{0, {2}}}}, {"arm", "root"}};
  return Lm(
      {LmInfo(3, {{2, "door", true}, {0, "shed", false}}), MaterialTable({Material{}, textured}),
       BoneTable("BONT", near), Attachments({"a.front:Cull", "door"}),
       Level(0.1F, {LevelPart(0, Geometry{}.Lm())}, Bindings(far)),
       Level(1, {LevelPart(0, Geometry{}.Lm() + Neighbours(1)), LevelPart(1, large.Lm(), 1)}, Bindings(near)),
       Level(-1, {LevelPart(1, Geometry{}.Lm())}, Bindings(far))});
}

// A .kin that moves these bones.
inline std::string Kin(const std::vector<std::string>& bones, float seconds = 1) {
  return Wrapper("ANIM", U32(100) + F32({seconds}) + Count(bones.size()) +
                             Joined(bones, [](const std::string& bone) { return PaddedText(bone); }));
}

}  // namespace mesh_builder
