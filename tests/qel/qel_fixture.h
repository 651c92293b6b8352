#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "database/catalogue/kuid_generator.h"
#include "database/catalogue/pack_table.h"
#include "engine/options.h"
#include "engine/render_kernel.h"
#include "frontend/messages/results_log.h"
#include "mesh/plugins.h"
#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"
#include "tests/mesh/mesh_builder.h"
#include "tests/scratch_folder.h"
#include "tests/test_files.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"
#include "validation/qel/validate_asset.h"

namespace QELLib {

// An .im without parts that has these attachment points.
inline std::string MeshWith(const std::vector<std::string>& attachments) {
  return mesh_builder::Im({}, mesh_builder::Attachments(attachments));
}

// Entries of what every asset holds, the present build and the old ones.
inline const std::string kCommonTags = R"(
morvex-build { kind "value" type "float" }
category-class { kind "value" type "string" }
category-era { kind "value" type "string" }
category-region { kind "value" type "string" }
)";

// A data folder with definitions of the test's own and a message table whose texts are the entries' numbers
// and arguments, and an asset to be judged by them.
class QelTest : public testing::Test {
 protected:
  QelTest() {
    setenv("MORVEX_PRODUCTS", (root_ / "products.txt").c_str(), 1);
    std::string table;
    for (int i = 0; i < 200; ++i)
      table += std::to_string(i) + " \"" + std::to_string(i) + " %s %s %s\"\n";
    Write("bin/QELData/stringtable.txt", table);
    Write("bin/QELData/colours.txt", "red the red\ngreen\n");
    morvex::ZEBSetRoot(root_.path());
  }
  ~QelTest() override {
    Stop();
    morvex::ZEBUnmountAllPacks();
    morvex::ZEBForgetRoot();
  }

  void Start() {
    Stop();
    ErrorHandler::Create();
    DataManager::Create(root_ / "bin/QELData/");
    engine_.Init(Nox::Options("-render=OpenGL"), &NoxGetPlugins);
    Manager().SetContext(&engine_);
  }
  void Stop() {
    DataManager::Destroy();
    ErrorHandler::Destroy();
  }
  DataManager& Manager() { return *DataManager::Get(); }

  void Write(const std::string& path, const std::string& content) const { PutFile(root_ / path, content); }
  // Meshes of the asset, with their attachment points.
  void WriteMeshes(const std::map<std::string, std::vector<std::string>>& meshes) const {
    for (const auto& [path, attachments] : meshes)
      Write("local/asset/" + path, MeshWith(attachments));
  }
  // The kinds, everything else in container.txt.
  void Define(const std::string& kinds, const std::string& containers = "") {
    Write("bin/QELData/kind.txt", kinds);
    Write("bin/QELData/container.txt", containers);
    Start();
  }

  // "good" or "bad", then what was said: severity, entry and arguments, one line each. The asset is of the present
  // build, unless the configuration says otherwise.
  std::string Judge(const std::string& config) {
    const bool saysBuild = config.find("morvex-build") != config.npos;
    Write("local/asset/config.txt", (saysBuild ? "" : "morvex-build 2.7\n") + config);
    return JudgeFolder();
  }
  std::string JudgeFolder() {
    morvex::ResultsLog log;
    const bool isGood = ValidateAsset(root_ / "local/asset", "", log);
    std::string said = isGood ? "good" : "bad";
    log.ForEach([&](const morvex::ResultsLog::Entry& entry) {
      said += entry.severity == morvex::Severity::kError ? "\nerror " : "\nwarning ";
      said += entry.text;
      while (said.ends_with(" %s"))
        said.resize(said.size() - 3);
    });
    return said;
  }

  ScratchFolder root_;
  Nox::RenderKernel engine_;
};

}  // namespace QELLib
