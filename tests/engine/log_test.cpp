#include "engine/log.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "engine/options.h"
#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace Nox {
namespace {

TEST(Log, WritesToTheFileThatTheEnvironmentNames) {
  const ScratchFolder scratch;
  Options options("-LogFile=/dev/null");
  options.Init("Tool", "LogStdOut");
  unsetenv("MORVEX_LOG");
  Log::Init(options);
  EXPECT_FALSE(Log::IsOpen());
  LogClient& client = Log::GetClient("Client");
  EXPECT_EQ(&client, &Log::GetClient("Client"));
  client.OutputString("nobody sees this");

  setenv("MORVEX_LOG", (scratch / "log").c_str(), 1);
  Log::Init(options);
  client.SetLevel(2);
  client.OutputString("one\nline %s");
  Log::Close();
  client.OutputString("too late");
  unsetenv("MORVEX_LOG");
  EXPECT_EQ(GetFile(scratch / "log"), "Tool Client(2): one line %s\n");
}

}  // namespace
}  // namespace Nox
