#include "tests/host/host_run.h"

#include <gtest/gtest.h>

#include <filesystem>

HostInstallation::HostInstallation() {
  std::filesystem::copy_file(MORVEX_HOST, *this / "bin/MorvexHost");
}

rapidjson::Document HostInstallation::Json(std::vector<std::string> arguments, int& code) const {
  arguments.push_back("--json");
  const ToolResult result = Host(arguments);
  code = result.code;
  rapidjson::Document document;
  document.Parse<rapidjson::kParseValidateEncodingFlag>(result.out.c_str());
  EXPECT_FALSE(document.HasParseError()) << result.out << result.err;
  EXPECT_TRUE(document.IsObject()) << result.out << result.err;
  return document;
}

void HostInstallation::Install(const std::string& sample, const std::string& kuid, bool commit) const {
  ASSERT_EQ(Run({"installfrompath", std::string(MORVEX_SAMPLES "/") + sample}).code, 0);
  if (commit) Run({"commit", kuid});
}
