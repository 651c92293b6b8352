#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "mesh/mesh_reporter.h"

namespace morvex {

// Keeps what it is told, a line for each finding: its severity, its number, its arguments.
class RecordingReporter final : public MeshReporter {
 public:
  void Error(MeshFinding finding, std::string_view argument) override { Add("error", finding, argument); }
  void Warning(MeshFinding finding, std::string_view first, std::string_view second) override {
    Add("warning", finding, std::string(first) + " " + std::string(second));
  }
  void Trace(MeshFinding finding) override { Add("trace", finding, ""); }
  bool AliasHidesMissingMesh() const override { return hasAlias; }

  // Also forgets it.
  std::string Take() { return std::exchange(said_, {}); }

  bool hasAlias = false;

 private:
  static const char* NameOf(MeshFinding finding) {
    constexpr const char* kNames[] = {
        "not found",        "not loaded",      "loaded",           "texture missing", "texture refused",
        "animation loaded", "animation unfit", "animation unread", "no animation",    "nothing to animate"};
    return kNames[static_cast<int>(finding)];
  }
  void Add(const char* severity, MeshFinding finding, std::string_view arguments) {
    said_ += std::string(severity) + " " + NameOf(finding);
    if (!arguments.empty()) said_ += " " + std::string(arguments);
    said_ += "\n";
  }

  std::string said_;
};

}  // namespace morvex
