#include <string>
#include <unordered_map>
#include <unordered_set>

#include "engine/config_parser.h"
#include "engine/number_text.h"
#include "engine/text.h"
#include "mesh/cull_attachments.h"
#include "mesh/load_steps.h"
#include "mesh/read_indexed_mesh.h"
#include "mesh/read_lod_mesh.h"
#include "mesh/text_values.h"

// The text form of an .lm, in the syntax of engine/config_parser.h.
//
//   mesh <threshold> { name <file> }             # at least one; thresholds rise
//   mesh <word> { name <file>; animated <truth> }   # behind those, levels that are reached by name
//   offset <number>                              # 0, as all numbers that aren't given, but
//   multiplier <number>                          # 1
//   animationCutOff <number>
//   renderCutOff <number>
//   attachmentCutOff <number>
//   calcPoint center | near | far
namespace morvex {
namespace {

// "1234567890." and nothing else makes a threshold of a word.
bool IsNumber(std::string_view value) {
  return !value.empty() && value.find_first_not_of("1234567890.") == value.npos;
}

CalcPoint CalcPointOf(std::string_view word) {
  if (Nox::EqualsIgnoreCase(word, "near")) return CalcPoint::kNear;
  return Nox::EqualsIgnoreCase(word, "far") ? CalcPoint::kFar : CalcPoint::kCentre;
}

bool IsText(std::string_view fileName) {
  return Nox::EndsWithIgnoreCase(fileName, ".imtxt");
}

class LodTextReader {
 public:
  LodTextReader(MorvexIndexedMeshLODDefinition& definition, const Nox::ConfigData& top,
                const MeshLoadContext& context, MeshFileSource& files)
      : definition_(definition), top_(top), context_(context), files_(files) {}

  MeshResult Read();

 private:
  MeshResult ReadThresholdLevel(const Nox::ConfigData& item, std::string_view value);
  MeshResult ReadNamedLevel(const Nox::ConfigData& item, std::string_view value);
  void ReadSettings();
  // Adds the level of a file. One that was added before isn't read again, but shared.
  MeshResult AddSubMesh(const std::string& fileName);
  MeshResult ReadSubMesh(const std::string& fileName, MorvexIndexedMeshDefinition& mesh);
  void TakeFirst(MorvexIndexedMeshDefinition& mesh);
  void AddInfluences(const std::vector<MeshInfluence>& others, MeshLevel& level) const;

  MorvexIndexedMeshLODDefinition& definition_;
  const Nox::ConfigData top_;
  const MeshLoadContext& context_;
  MeshFileSource& files_;
  std::unordered_map<std::string, std::uint32_t> levelOfFile_;
  std::unordered_set<Nox::PString> names_;
};

MeshResult LodTextReader::Read() {
  bool isNumbered = true;  // until the first word
  for (auto item = top_.FirstChild(); item; item = item.Next()) {
    if (!Nox::EqualsIgnoreCase(item.Key(), "mesh")) continue;
    std::string_view value;
    item.Values().Next(value);
    isNumbered = isNumbered && IsNumber(value);
    const MeshResult result = isNumbered ? ReadThresholdLevel(item, value) : ReadNamedLevel(item, value);
    if (result != RES_SUCCESS) return result;
  }
  if (definition_.thresholds.empty()) return RES_FILE_FORMAT_ERROR;
  ReadSettings();
  FillCullAttachments(definition_);
  return RES_SUCCESS;
}

MeshResult LodTextReader::ReadThresholdLevel(const Nox::ConfigData& item, std::string_view value) {
  const float threshold = Nox::ReadFloat(value);
  std::string fileName;
  if (!(item.Find("name") >> fileName)) return RES_FILE_FORMAT_ERROR;
  std::vector<float>& thresholds = definition_.thresholds;
  if (!thresholds.empty() && !(threshold > thresholds.back())) return RES_FILE_FORMAT_ERROR;
  thresholds.push_back(threshold);
  return AddSubMesh(fileName);
}

MeshResult LodTextReader::ReadNamedLevel(const Nox::ConfigData& item, std::string_view value) {
  NamedMesh named;
  named.name = Nox::PString(value).ToLower();
  if (definition_.thresholds.empty() || value.empty() || IsNumber(value) || !names_.insert(named.name).second)
    return RES_FILE_FORMAT_ERROR;
  item.Find("animated") >> named.animated;
  std::string fileName;
  if (!(item.Find("name") >> fileName)) return RES_FILE_FORMAT_ERROR;
  const auto known = levelOfFile_.find(fileName);
  named.level =
      known != levelOfFile_.end() ? known->second : static_cast<std::uint32_t>(definition_.levels.size());
  definition_.namedMeshes.push_back(named);
  return known != levelOfFile_.end() ? RES_SUCCESS : AddSubMesh(fileName);
}

void LodTextReader::ReadSettings() {
  top_.Find("offset") >> definition_.offset;
  top_.Find("multiplier") >> definition_.multiplier;
  top_.Find("animationCutOff") >> definition_.animationCutOff;
  top_.Find("renderCutOff") >> definition_.renderCutOff;
  top_.Find("attachmentCutOff") >> definition_.attachmentCutOff;
  std::string calcPoint;
  top_.Find("calcPoint") >> calcPoint;
  definition_.calcPoint = CalcPointOf(calcPoint);
}

MeshResult LodTextReader::ReadSubMesh(const std::string& fileName, MorvexIndexedMeshDefinition& mesh) {
  const auto bytes = files_.ReadMeshFile(fileName);
  if (!bytes) return RES_FILE_OPEN_ERROR;
  return IsText(fileName) ? ReadIndexedMeshText(mesh, *bytes, fileName, context_)
                          : ReadIndexedMesh(mesh, *bytes, fileName, context_);
}

MeshResult LodTextReader::AddSubMesh(const std::string& fileName) {
  const auto number = static_cast<std::uint32_t>(definition_.levels.size());
  const auto [known, isNew] = levelOfFile_.try_emplace(fileName, number);
  if (!isNew) {
    definition_.levels.push_back(definition_.levels[known->second]);
    return RES_SUCCESS;
  }
  MorvexIndexedMeshDefinition mesh;
  if (const MeshResult result = ReadSubMesh(fileName, mesh)) return result;
  if (number == 0) {
    TakeFirst(mesh);
  } else if (mesh.attachments.size() != definition_.attachments.size() ||
             mesh.influences.size() != definition_.influences.size()) {
    return RES_FILE_FORMAT_ERROR;
  }
  if (DiagonalSquared(mesh.box) > DiagonalSquared(definition_.box)) definition_.box = mesh.box;
  AddInfluences(mesh.influences, *mesh.levels.front());
  definition_.levels.push_back(mesh.levels.front());
  definition_.pendingTextures.insert(definition_.pendingTextures.end(), mesh.pendingTextures.begin(),
                                     mesh.pendingTextures.end());
  return RES_SUCCESS;
}

void LodTextReader::TakeFirst(MorvexIndexedMeshDefinition& mesh) {
  definition_.position = mesh.position;
  definition_.orientation = mesh.orientation;
  definition_.box = mesh.box;
  definition_.attachments = mesh.attachments;
  definition_.influences = mesh.influences;
  definition_.skeleton = std::move(mesh.skeleton);
}

// Puts the bindings of a level, which go by the bones of its own file, in the order of this mesh's bones. What
// belongs to a bone of no known name is lost.
void LodTextReader::AddInfluences(const std::vector<MeshInfluence>& others, MeshLevel& level) const {
  std::unordered_map<Nox::PString, std::size_t> numbers;
  for (std::size_t i = 0; i < definition_.influences.size(); ++i)
    numbers.try_emplace(definition_.influences[i].name, i);
  std::vector<std::vector<VertexGroup>> bindings(definition_.influences.size());
  for (std::size_t i = 0; i < others.size(); ++i) {
    const auto named = numbers.find(others[i].name);
    if (named == numbers.end()) continue;
    std::vector<VertexGroup>& groups = bindings[named->second];
    groups.insert(groups.end(), std::make_move_iterator(level.bindings[i].begin()),
                  std::make_move_iterator(level.bindings[i].end()));
  }
  level.bindings = std::move(bindings);
}

}  // namespace

MeshResult ReadLodMeshText(MorvexIndexedMeshLODDefinition& definition, std::span<const std::uint8_t> file,
                           std::string_view fileName, const MeshLoadContext& context, MeshFileSource& files) {
  Nox::ConfigParser parser;
  if (!parser.Parse({reinterpret_cast<const char*>(file.data()), file.size()})) return RES_FILE_OPEN_ERROR;
  if (!IsMeshTextVersion(parser.Version())) return RES_FILE_VERSION_ERROR;
  BeginMesh(definition, fileName, context);
  return LodTextReader(definition, parser.Top(), context, files).Read();
}

}  // namespace morvex
