// mesh: what is in a mesh file, and a picture of it.

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "engine/format.h"
#include "engine/number_text.h"
#include "engine/replace_file.h"
#include "host/command.h"
#include "host/host.h"
#include "host/json_writer.h"
#include "host/mesh_file.h"
#include "host/mesh_picture.h"
#include "host/paths.h"
#include "host/visible_text.h"

namespace morvex::host {

namespace {

struct Options {
  std::string file;
  std::string preview;
  bool asWire = false;
};

std::vector<std::string> TexturesOf(const MorvexIndexedMeshDefinition& mesh, const MeshPart& part) {
  std::vector<std::string> names;
  for (const PendingTexture& pending : mesh.pendingTextures) {
    if (pending.material.Get() == part.material.Get()) names.push_back(pending.texture.name);
  }
  return names;
}

std::string MaterialOf(const MeshPart& part) {
  return part.material ? part.material->GetRequestName() : std::string();
}

// The names that lead to a level, the first of them.
std::string NameOfLevel(const MeshFile& mesh, size_t level) {
  if (mesh.lod == nullptr) return {};
  for (const NamedMesh& named : mesh.lod->namedMeshes) {
    if (named.level == level) return named.name.Text();
  }
  return {};
}

void WriteVector(JsonWriter& json, const Nox::Vector3& value) {
  json.BeginArray().Real(value.x).Real(value.y).Real(value.z).EndArray();
}

void WriteLevel(JsonWriter& json, const MeshFile& mesh, size_t level) {
  const bool hasThreshold = mesh.lod != nullptr && level < mesh.lod->thresholds.size();
  json.BeginObject();
  json.Key("threshold");
  if (hasThreshold) {
    json.Real(mesh.lod->thresholds[level]);
  } else {
    json.Null();
  }
  json.Key("name").TextOrNull(NameOfLevel(mesh, level));
  json.Key("chunks").BeginArray();
  for (const MeshPart& part : mesh.definition->levels[level]->parts) {
    const Nox::GeometryChunkSize size = part.chunk ? part.chunk->Size() : Nox::GeometryChunkSize();
    json.BeginObject();
    json.Key("vertices").Number(size.vertices);
    json.Key("faces").Number(size.faces);
    json.Key("indices").Number(size.indices);
    json.Key("material").Text(MaterialOf(part));
    json.Key("textures").BeginArray();
    for (const std::string& name : TexturesOf(*mesh.definition, part))
      json.Text(name);
    json.EndArray().EndObject();
  }
  json.EndArray().EndObject();
}

std::string_view BoneParent(const Skeleton& skeleton, const Skeleton::Bone& bone) {
  return bone.parent == Skeleton::kNone ? std::string_view() : skeleton.At(bone.parent).name.View();
}

void WriteContent(JsonWriter& json, const MeshFile& mesh) {
  const MorvexIndexedMeshDefinition& definition = *mesh.definition;
  json.Key("position");
  WriteVector(json, definition.position);
  json.Key("box").BeginObject().Key("min");
  WriteVector(json, definition.box.min);
  json.Key("max");
  WriteVector(json, definition.box.max);
  json.EndObject();
  json.Key("levels").BeginArray();
  for (size_t level = 0; level < definition.levels.size(); ++level)
    WriteLevel(json, mesh, level);
  json.EndArray();
  json.Key("attachments").BeginArray();
  for (const MeshAttachment& attachment : definition.attachments) {
    json.BeginObject().Key("name").Text(attachment.name).Key("position");
    WriteVector(json, attachment.position);
    json.EndObject();
  }
  json.EndArray();
  json.Key("bones").BeginArray();
  for (const uint32_t number : definition.skeleton.DepthFirst()) {
    const Skeleton::Bone& bone = definition.skeleton.At(number);
    json.BeginObject().Key("name").Text(bone.name);
    json.Key("parent").TextOrNull(BoneParent(definition.skeleton, bone)).EndObject();
  }
  json.EndArray();
}

void WriteEmptyContent(JsonWriter& json) {
  json.Key("position").Null().Key("box").Null();
  for (const char* list : {"levels", "attachments", "bones"})
    json.Key(list).BeginArray().EndArray();
}

void WriteJson(JsonWriter& json, const MeshFile& mesh) {
  json.BeginObject();
  json.Key("result").Text(mesh.result == RES_SUCCESS ? "OK" : MeshResultName(mesh.result));
  json.Key("kind").Text(mesh.kind);
  if (mesh.definition) {
    WriteContent(json, mesh);
  } else {
    WriteEmptyContent(json);
  }
  json.EndObject();
}

std::string PointText(const Nox::Vector3& point) {
  return Nox::ShortestFloat(point.x) + ", " + Nox::ShortestFloat(point.y) + ", " +
         Nox::ShortestFloat(point.z);
}

void PrintLevel(const Console& console, const MeshFile& mesh, size_t level) {
  const MeshLevel& content = *mesh.definition->levels[level];
  std::string title = "Level";
  const bool hasThreshold = mesh.lod != nullptr && level < mesh.lod->thresholds.size();
  if (hasThreshold) title += " from " + Nox::ShortestFloat(mesh.lod->thresholds[level]);
  const std::string name = NameOfLevel(mesh, level);
  if (!name.empty()) title += " \"" + VisibleText(name) + "\"";
  console.Out() << console.Paint(Style::kBold, title)
                << Nox::FormatText("  %u vertices, %u faces\n", content.VertexTotal(), content.FaceTotal());
  for (const MeshPart& part : content.parts) {
    const Nox::GeometryChunkSize size = part.chunk ? part.chunk->Size() : Nox::GeometryChunkSize();
    console.Out() << Nox::FormatText("  %7u vertices  %7u faces  ", size.vertices, size.faces)
                  << VisibleText(MaterialOf(part));
    for (const std::string& texture : TexturesOf(*mesh.definition, part))
      console.Out() << "  " << console.Paint(Style::kDim, VisibleText(texture));
    console.Out() << '\n';
  }
}

void PrintText(const Console& console, const MeshFile& mesh) {
  const MorvexIndexedMeshDefinition& definition = *mesh.definition;
  console.Out() << console.Paint(Style::kBlue, mesh.kind) << "  box " << PointText(definition.box.min)
                << "  to  " << PointText(definition.box.max) << '\n';
  for (size_t level = 0; level < definition.levels.size(); ++level)
    PrintLevel(console, mesh, level);
  for (const MeshAttachment& attachment : definition.attachments)
    console.Out() << "attachment  " << VisibleText(attachment.name) << "  at "
                  << PointText(attachment.position) << '\n';
  for (const uint32_t number : definition.skeleton.DepthFirst()) {
    const Skeleton::Bone& bone = definition.skeleton.At(number);
    const std::string_view parent = BoneParent(definition.skeleton, bone);
    console.Out() << "bone  " << VisibleText(bone.name);
    if (!parent.empty()) console.Out() << "  on " << VisibleText(parent);
    console.Out() << '\n';
  }
}

ExitCode Mesh(Host& host, const Options& options) {
  const MeshFile mesh = LoadMeshFile(AbsolutePath(options.file));
  if (mesh.kind.empty())
    return host.Fail(ExitCode::kUsage,
                     "\"" + options.file + "\" isn't called like a mesh: .im, .imtxt, .lm or .lm.txt.");
  if (host.WantsJson()) {
    JsonWriter json(host.console().Out());
    WriteJson(json, mesh);
  } else if (mesh.definition) {
    PrintText(host.console(), mesh);
  }
  if (mesh.result == RES_FILE_OPEN_ERROR)
    return host.Fail(ExitCode::kNotFound,
                     "\"" + options.file + "\" can't be opened. Check that it is there and may be read.");
  if (!mesh.definition) {
    return host.Fail(ExitCode::kFaulty, "\"" + options.file +
                                            "\": " + std::string(MeshResultName(mesh.result)) + ": " +
                                            std::string(MeshResultMessage(mesh.result)));
  }
  if (options.preview.empty()) return ExitCode::kSuccess;
  const PictureStyle style = options.asWire ? PictureStyle::kWire : PictureStyle::kShaded;
  if (Nox::WriteFileReplacing(AbsolutePath(options.preview), DrawMesh(mesh.definition->MainLevel(), style)))
    return ExitCode::kSuccess;
  return host.Fail(ExitCode::kFailed,
                   "\"" + options.preview + "\" couldn't be written. Check its folder and the free space.");
}

}  // namespace

void DeclareMesh(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  command.add_option("file", options->file, "Mesh file: .im, .imtxt, .lm or .lm.txt")
      ->required()
      ->type_name("FILE");
  command.add_option("--preview", options->preview, "Draw its main level into this SVG file")
      ->type_name("FILE");
  command.add_flag("--wire", options->asWire, "Draw edges in place of shaded surfaces");
  command.footer("Example:\n  MorvexHost mesh loco.lm --preview loco.svg");
  command.callback([options, &run] { run = [options](Host& host) { return Mesh(host, *options); }; });
}

}  // namespace morvex::host
