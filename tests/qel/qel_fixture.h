#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "database/catalogue/kuid_generator.h"
#include "database/catalogue/pack_table.h"
#include "frontend/messages/results_log.h"
#include "tagdata/tag_container.h"
#include "tagdata/text_config.h"
#include "tests/scratch_folder.h"
#include "validation/qel/container.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/error_handler.h"
#include "validation/qel/validate_asset.h"

namespace QELLib {

// Hands out the meshes that a test made, by file name.
class FakeMeshes : public MeshLoader {
 public:
  std::unique_ptr<AssetMesh> Load(const Nox::Location& file, const Container&) override {
    const auto found = meshes.find(std::filesystem::path(file.path).filename().string());
    return found == meshes.end() ? nullptr : std::make_unique<Mesh>(found->second);
  }
  bool IsAnimation(const Nox::Location& file) override { return file.path.ends_with("good.kin"); }

  std::map<std::string, std::vector<std::string>> meshes;  // attachments by file name

 private:
  struct Mesh : AssetMesh {
    explicit Mesh(std::vector<std::string> attachments) : names(std::move(attachments)) {}
    const std::vector<std::string>& AttachmentNames() const override { return names; }
    std::vector<std::string> names;
  };
};

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
  }
  void Stop() {
    DataManager::Destroy();
    ErrorHandler::Destroy();
  }
  DataManager& Manager() { return *DataManager::Get(); }

  void Write(const std::string& path, const std::string& content) const {
    std::filesystem::create_directories(std::filesystem::path(root_ / path).parent_path());
    std::ofstream(root_ / path, std::ios::binary) << content;
  }
  // The kinds, everything else in container.txt.
  void Define(const std::string& kinds, const std::string& containers = "") {
    Write("bin/QELData/kind.txt", kinds);
    Write("bin/QELData/container.txt", containers);
    Start();
  }

  // "good" or "bad", then what was said: severity, entry and arguments, one line each.
  std::string Judge(const std::string& config) {
    Write("local/asset/config.txt", config);
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
};

}  // namespace QELLib
