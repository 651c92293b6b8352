#pragma once

#include <rapidjson/document.h>

#include <string>
#include <vector>

#include "tests/tool/tool_run.h"

// An installation with both programs.
class HostInstallation : public Installation {
 public:
  HostInstallation();

  ToolResult Host(const std::vector<std::string>& arguments) const {
    return RunProgram("MorvexHost", arguments);
  }
  // A run with --json whose results read back as one object; `code` becomes its exit code.
  rapidjson::Document Json(std::vector<std::string> arguments, int& code) const;

  // Installs a sample from its folder, and commits it unless it is to stay open.
  void Install(const std::string& sample, const std::string& kuid, bool commit = true) const;
};
