#pragma once

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/tool/tool_run.h"

// An installation with both programs.
class HostInstallation : public Installation {
 public:
  HostInstallation() { std::filesystem::copy_file(MORVEX_HOST, *this / "bin/MorvexHost"); }

  ToolResult Host(const std::vector<std::string>& arguments) const {
    return RunProgram("MorvexHost", arguments);
  }
  // A run with --json whose results read back as one object; `code` becomes its exit code.
  rapidjson::Document Json(std::vector<std::string> arguments, int& code) const {
    arguments.push_back("--json");
    const ToolResult result = Host(arguments);
    code = result.code;
    rapidjson::Document document;
    document.Parse<rapidjson::kParseValidateEncodingFlag>(result.out.c_str());
    EXPECT_FALSE(document.HasParseError()) << result.out << result.err;
    EXPECT_TRUE(document.IsObject()) << result.out << result.err;
    return document;
  }

  // Installs a sample from its folder, and commits it unless it is to stay open.
  void Install(const std::string& sample, const std::string& kuid, bool commit = true) const {
    ASSERT_EQ(Run({"installfrompath", std::string(MORVEX_SAMPLES "/") + sample}).code, 0);
    if (commit) Run({"commit", kuid});
  }
};
