#include <array>
#include <string>

#include "engine/config_parser.h"
#include "engine/text.h"
#include "mesh/load_steps.h"
#include "mesh/make_chunk.h"
#include "mesh/read_indexed_mesh.h"
#include "mesh/text_geometry.h"
#include "mesh/text_material.h"
#include "mesh/text_values.h"

// The text form of an .im, in the syntax of engine/config_parser.h. At the top, in any order:
//
//   Mesh { <setting> <truth> ... }     # settings of the load
//   position <x y z>                   # optional, as all but the chunks
//   orientation <x y z w>
//   maxInfluencesPerVertex <count>
//   maxMatricesPerChunk <count>
//   Material <name> { ... }            # text_material.cpp; any number
//   chunk <material> { ... }           # text_geometry.cpp; at least one
//   attachment <name> { position <x y z>; rotation <9 numbers> }   # any number
//   bone <name> {                      # any number
//     parent <name>
//     position <x y z>
//     rotation <9 numbers>
//     group <chunk> { v <vertex> <weight> <x y z> ... }   # any number
//   }
namespace morvex {
namespace {

struct SettingKey {
  const char* key;
  std::optional<bool> MeshSettings::*setting;
};
constexpr std::array<SettingKey, 5> kSettings = {{
    {"SoftwareLighting", &MeshSettings::softwareLighting},
    {"SoftwareAnimation", &MeshSettings::softwareAnimation},
    {"DynamicVertex", &MeshSettings::dynamicVertex},
    {"DynamicIndex", &MeshSettings::dynamicIndex},
    {"HardwareAnimationFloatPrecision", &MeshSettings::hardwareAnimationFloatPrecision},
}};

class IndexedMeshTextReader {
 public:
  IndexedMeshTextReader(MorvexIndexedMeshDefinition& definition, const Nox::ConfigData& top,
                        const MeshLoadContext& context)
      : definition_(definition),
        top_(top),
        context_(context),
        materials_(top, context.display),
        level_(AddLevel(definition)) {}

  MeshResult Read();

 private:
  bool ReadSettings();
  bool ReadHeader();
  MeshResult ReadChunks();
  MeshResult ReadChunk(const Nox::ConfigData& chunk);
  bool ReadAttachment(const Nox::ConfigData& item);
  bool ReadBone(const Nox::ConfigData& item);
  static bool ReadGroup(const Nox::ConfigData& item, VertexGroup& group);
  // Reads all items of a key; false as soon as one is wrong.
  bool ReadEach(std::string_view key, bool (IndexedMeshTextReader::*read)(const Nox::ConfigData&));

  MorvexIndexedMeshDefinition& definition_;
  const Nox::ConfigData top_;
  MeshLoadContext context_;
  TextMaterials materials_;
  MeshLevel& level_;
  bool hasVertices_ = false;
};

MeshResult IndexedMeshTextReader::Read() {
  if (!ReadSettings() || !ReadHeader()) return RES_FILE_FORMAT_ERROR;
  if (const MeshResult result = ReadChunks()) return result;
  if (!hasVertices_ || !ReadEach("attachment", &IndexedMeshTextReader::ReadAttachment) ||
      !ReadEach("bone", &IndexedMeshTextReader::ReadBone))
    return RES_FILE_FORMAT_ERROR;
  return RES_SUCCESS;
}

bool IndexedMeshTextReader::ReadSettings() {
  const Nox::ConfigData mesh = top_.Find("Mesh");
  for (const SettingKey& known : kSettings) {
    const Nox::ConfigData item = mesh.Find(known.key);
    bool value = false;
    if (!ReadBool(item, value)) return false;
    if (item) context_.settings.*known.setting = value;
  }
  return true;
}

bool IndexedMeshTextReader::ReadHeader() {
  const bool isRight = ReadVector(top_.Find("position"), definition_.position) &&
                       ReadQuaternion(top_.Find("orientation"), definition_.orientation) &&
                       ReadCount(top_.Find("maxInfluencesPerVertex"), level_.maxInfluencesPerVertex) &&
                       ReadCount(top_.Find("maxMatricesPerChunk"), level_.maxMatricesPerChunk);
  level_.hardwareSkinned = IsHardwareSkinned(level_, context_);
  return isRight;
}

MeshResult IndexedMeshTextReader::ReadChunks() {
  for (auto item = top_.FirstChild(); item; item = item.Next()) {
    if (!Nox::EqualsIgnoreCase(item.Key(), "chunk")) continue;
    if (const MeshResult result = ReadChunk(item)) return result;
  }
  return RES_SUCCESS;
}

MeshResult IndexedMeshTextReader::ReadChunk(const Nox::ConfigData& chunk) {
  Nox::ConfigValues values = chunk.Values();
  std::string_view name;
  MaterialSpec spec;
  if (!values.Next(name) || !materials_.Extract(name, spec)) return RES_FILE_FORMAT_ERROR;
  MeshPart part;
  const std::size_t texturesBefore = definition_.pendingTextures.size();
  if (const MeshResult result = CreateMaterial(std::move(spec), context_, definition_, part.material))
    return result;
  if (!ReadTextGeometry(chunk, context_, level_.hardwareSkinned, part)) return RES_FILE_FORMAT_ERROR;
  hasVertices_ |= part.chunk->Size().vertices > 0;
  if (!KeepPart(level_, std::move(part))) definition_.pendingTextures.resize(texturesBefore);
  return RES_SUCCESS;
}

bool IndexedMeshTextReader::ReadEach(std::string_view key,
                                     bool (IndexedMeshTextReader::*read)(const Nox::ConfigData&)) {
  for (auto item = top_.FirstChild(); item; item = item.Next()) {
    if (Nox::EqualsIgnoreCase(item.Key(), key) && !(this->*read)(item)) return false;
  }
  return true;
}

bool IndexedMeshTextReader::ReadAttachment(const Nox::ConfigData& item) {
  MeshAttachment attachment;
  std::string name;
  if (!(item >> name)) return false;
  attachment.name = Nox::PString(name);
  if (!ReadVector(item.Find("position"), attachment.position) ||
      !ReadMatrix(item.Find("rotation"), attachment.rotation))
    return false;
  definition_.attachments.push_back(attachment);
  return true;
}

bool IndexedMeshTextReader::ReadBone(const Nox::ConfigData& item) {
  MeshInfluence bone;
  std::string name;
  std::string parent;
  if (!(item >> name)) return false;
  item.Find("parent") >> parent;
  bone.name = Nox::PString(name);
  bone.parent = Nox::PString(parent);
  if (!ReadVector(item.Find("position"), bone.position) || !ReadMatrix(item.Find("rotation"), bone.rotation))
    return false;
  definition_.influences.push_back(bone);
  std::vector<VertexGroup>& groups = level_.bindings.emplace_back();
  for (auto child = item.FirstChild(); child; child = child.Next()) {
    if (!Nox::EqualsIgnoreCase(child.Key(), "group")) continue;
    VertexGroup group;
    if (!ReadGroup(child, group)) return false;
    if (!group.vertices.empty()) groups.push_back(std::move(group));
  }
  return true;
}

bool IndexedMeshTextReader::ReadGroup(const Nox::ConfigData& item, VertexGroup& group) {
  Nox::ConfigValues part = item.Values();
  if (!NextCount(part, group.part)) return false;
  for (auto child = item.FirstChild(); child; child = child.Next()) {
    if (!Nox::EqualsIgnoreCase(child.Key(), "v")) continue;
    GroupVertex& moved = group.vertices.emplace_back();
    Nox::ConfigValues values = child.Values();
    if (!NextCount(values, moved.vertex) || !values.Next(moved.weight) || !values.Next(moved.offset.x) ||
        !values.Next(moved.offset.y) || !values.Next(moved.offset.z) || !values.AtEnd())
      return false;
  }
  return true;
}

}  // namespace

MeshResult ReadIndexedMeshText(MorvexIndexedMeshDefinition& definition, std::span<const std::uint8_t> file,
                               std::string_view fileName, const MeshLoadContext& context) {
  Nox::ConfigParser parser;
  if (!parser.Parse({reinterpret_cast<const char*>(file.data()), file.size()})) return RES_FILE_FORMAT_ERROR;
  if (!IsMeshTextVersion(parser.Version())) return RES_FILE_VERSION_ERROR;
  BeginMesh(definition, fileName, context);
  if (const MeshResult result = IndexedMeshTextReader(definition, parser.Top(), context).Read())
    return result;
  FinishMesh(definition);
  return RES_SUCCESS;
}

}  // namespace morvex
