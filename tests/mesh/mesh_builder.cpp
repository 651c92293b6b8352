#include "tests/mesh/mesh_builder.h"

#include <bit>

namespace mesh_builder {
namespace {

std::string Joined(const std::vector<std::string>& pieces) {
  std::string all;
  for (const std::string& piece : pieces)
    all += piece;
  return all;
}

std::string Count(std::size_t count) {
  return U32(static_cast<std::uint32_t>(count));
}

std::string U16(std::uint32_t value) {
  return U32(value).substr(0, 2);
}

}  // namespace

std::string U32(std::uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8)
    bytes += static_cast<char>(value >> shift);
  return bytes;
}

std::string F32(std::vector<float> values) {
  std::string bytes;
  for (const float value : values)
    bytes += U32(std::bit_cast<std::uint32_t>(value));
  return bytes;
}

std::string PaddedText(std::string_view text) {
  return Count(text.size()) + std::string(text) + std::string((4 - text.size() % 4) % 4, '\0');
}

std::string ChunkOfSize(int off, std::string_view tag, std::uint32_t version, std::string_view body) {
  return std::string(tag) + U32(static_cast<std::uint32_t>(static_cast<int>(body.size()) + 4 + off)) +
         U32(version) + std::string(body);
}

std::string Chunk(std::string_view tag, std::uint32_t version, std::string_view body) {
  return ChunkOfSize(0, tag, version, body);
}

std::string Wrapper(std::string_view kind, std::string_view body, int off) {
  const auto size = static_cast<std::uint32_t>(static_cast<int>(body.size()) + 4 + off);
  return "JIRF" + U32(size) + std::string(kind) + std::string(body);
}

std::string Material::Bytes() const {
  std::string body = PaddedText(name) + U32(1) + PaddedText("key") + PaddedText("value") + U32(flag) +
                     F32({opacity}) + F32(colours) + F32({power}) + Count(textures.size());
  for (const Texture& texture : textures)
    body += U32(texture.slot) + PaddedText(texture.name) + F32({texture.weight});
  return Chunk("MATL", version, body);
}

std::string Geometry::Bytes(bool hasName, bool hasTextureSets, bool hasColours) const {
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
  return ChunkOfSize(sizeOff, "GEOM", version, body + rest);
}

std::string Geometry::Im() const {
  return Bytes(version >= 200, version >= 103 && version < 200, version >= 104 && version < 200);
}

std::string Geometry::Lm() const {
  return Bytes(version >= 103, false, false);
}

std::string Neighbours(std::uint32_t faces) {
  std::string records;
  for (std::uint32_t i = 0; i < faces * 3; ++i)
    records += U32(i + 100);
  return Chunk("NINF", 100, records);
}

std::string Attachments(const std::vector<std::string>& names) {
  std::string body = Count(names.size());
  for (std::size_t i = 0; i < names.size(); ++i)
    body += PaddedText(names[i]) + F32(kNoTurn) + F32({static_cast<float>(i), 1, 2});
  return Chunk("ATCH", 100, body);
}

std::string Bone::Bytes() const {
  return PaddedText(name) + PaddedText(parent) + F32({static_cast<float>(name.size()), 0, 0}) + F32(kNoTurn);
}

std::string Bone::GroupBytes() const {
  std::string bytes = Count(groups.size());
  for (const Group& group : groups) {
    bytes += U32(group.part) + Count(group.vertices.size());
    for (const std::uint32_t vertex : group.vertices)
      bytes += U32(vertex) + F32({group.weight, 1, 2, 3});
  }
  return bytes;
}

std::string ImInfo(std::uint32_t parts, std::uint32_t version, std::uint32_t influences,
                   std::uint32_t matrices) {
  std::string body = F32({1, 2, 3}) + F32({0, 0, 0, 1}) + U32(parts);
  if (version >= 102) body += U32(influences) + U32(matrices);
  if (version == 104) body += F32({-9, -9, -9, 9, 9, 9});
  return Chunk("INFO", version, body);
}

std::string Part(const std::string& material, const std::string& geometry, const std::string& rest) {
  return Chunk("CHNK", 100, U32(0) + material + geometry + rest);
}

std::string Influences(const std::vector<Bone>& bones, int sizeOff) {
  std::string body = Count(bones.size());
  for (const Bone& bone : bones)
    body += bone.Bytes() + bone.GroupBytes();
  return ChunkOfSize(sizeOff, "INFL", 100, body);
}

// A bone's size counts all bones below it.
std::string BoneChain(int depth, std::uint32_t version) {
  std::vector<std::string> bodies;
  std::size_t size = 0;
  for (int i = 0; i < depth; ++i) {
    bodies.push_back(U32(version) + PaddedText(std::to_string(i)) + F32({static_cast<float>(i), 0, 0}) +
                     F32({0, 0, 0, 1}) + U32(i + 1 < depth ? 1 : 0));
    size += 8 + bodies.back().size();
  }
  std::string chain;
  for (const std::string& body : bodies) {
    chain += "BONE" + Count(size - 8) + body;
    size -= 8 + body.size();
  }
  return chain;
}

std::string BareBones(const std::string& bone) {
  return Chunk("SKEL", 100, bone);
}

std::string Im(const std::vector<std::string>& parts, const std::string& behind) {
  return Wrapper("IDXM", ImInfo(static_cast<std::uint32_t>(parts.size())) + Joined(parts) + behind);
}

std::string SmallIm() {
  return Im({Part(Material{}.Bytes(), Geometry{}.Im())});
}

std::string FullIm() {
  Material first;
  first.textures = {{0, "old/place/hull.texture", 1}, {8, "bump.tga", 0.5}};
  Material second;
  second.name = "glass.m.notex";
  Geometry axis;
  axis.axis = true;
  axis.weights = 1;
  axis.faces = axis.faceNormals = 2;
  axis.indices = 6;
  return Im(
      {Part(first.Bytes(), axis.Im(), Neighbours(2)), Part(second.Bytes(), Geometry{}.Im())},
      Influences({{"root", "", {{0, {0, 1}}, {1, {2}}}}, {"arm", "root", {{0, {2}}}}, {"idle", "root"}}) +
          Attachments({"a.front", "door"}));
}

std::string LmInfo(std::uint32_t levels, const std::vector<NamedLevel>& names) {
  std::string body = F32({1, 2, 3}) + F32({0, 0, 0, 1}) + U32(levels) + U32(2) + F32({10, 11, 12, 13, 14}) +
                     Count(names.size());
  for (const NamedLevel& named : names)
    body += U32(named.level) + PaddedText(named.name) + (named.animated ? '\1' : '\0');
  return Chunk("INFO", 100, body);
}

std::string MaterialTable(const std::vector<Material>& materials) {
  std::string body = Count(materials.size());
  for (const Material& material : materials)
    body += material.Bytes();
  return Chunk("MATT", 100, body);
}

std::string BoneTable(std::string_view tag, const std::vector<Bone>& bones) {
  std::string body = Count(bones.size());
  for (const Bone& bone : bones)
    body += bone.Bytes();
  return Chunk(tag, 100, body);
}

std::string Bindings(const std::vector<Bone>& bones) {
  std::string body;
  for (const Bone& bone : bones)
    body += bone.GroupBytes();
  return Chunk("LODB", 100, body);
}

std::string LevelPart(std::uint32_t material, const std::string& geometry, std::uint32_t number) {
  return Chunk("LCHK", 100, U32(number) + U32(material) + geometry);
}

std::string Level(float threshold, const std::vector<std::string>& parts, const std::string& bindings) {
  return Chunk("MESH", 100,
               Count(parts.size()) + U32(1) + U32(2) + F32({threshold}) + bindings + Joined(parts));
}

std::string Lm(const std::vector<std::string>& chunks) {
  return Wrapper("LODM", Joined(chunks));
}

std::string SmallLm() {
  return Lm({LmInfo(1), MaterialTable({Material{}}), Level(0.5, {LevelPart(0, Geometry{}.Lm())})});
}

std::string FullLm() {
  Material textured;
  textured.name = "glass.m.notex";
  textured.textures = {{0, "glass.texture", 1}};
  Geometry large;
  large.vertices = 5;
  large.axis = true;
  const std::vector<Bone> near = {{"root", "", {{0, {0, 1}}}}, {"arm", "root", {{1, {4}}}}};
  const std::vector<Bone> far = {{"root", "", {{0, {2}}}}, {"arm", "root"}};
  return Lm(
      {LmInfo(3, {{2, "door", true}, {0, "shed", false}}), MaterialTable({Material{}, textured}),
       BoneTable("BONT", near), Attachments({"a.front:Cull", "door"}),
       Level(0.1F, {LevelPart(0, Geometry{}.Lm())}, Bindings(far)),
       Level(1, {LevelPart(0, Geometry{}.Lm() + Neighbours(1)), LevelPart(1, large.Lm(), 1)}, Bindings(near)),
       Level(-1, {LevelPart(1, Geometry{}.Lm())}, Bindings(far))});
}

std::string Kin(const std::vector<std::string>& bones, float seconds) {
  std::string body = U32(100) + F32({seconds}) + Count(bones.size());
  for (const std::string& bone : bones)
    body += PaddedText(bone);
  return Wrapper("ANIM", body);
}

}  // namespace mesh_builder
