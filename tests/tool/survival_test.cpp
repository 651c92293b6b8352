// Nothing is lost: killed runs, damaged indexes, tools side by side.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>
#include <thread>

#include "tests/tool/tool_run.h"

namespace fs = std::filesystem;

namespace {

std::string Kuid(int number) {
  return "<kuid:100:" + std::to_string(number) + ">";
}

std::string MakeAsset(const ScratchFolder& work, int number) {
  const std::string folder = work / ("asset" + std::to_string(number));
  WriteFile(folder + "/config.txt", "kuid " + Kuid(number) + "\nkind \"scenery\"\nusername \"Asset " +
                                        std::to_string(number) + "\"\nmorvex-build 2.9\n");
  WriteFile(folder + "/body.im", std::string(2000, static_cast<char>('a' + number)));
  return folder;
}

TEST(Survival, ADamagedIndexIsMadeAnew) {
  const Installation place;
  const ScratchFolder work;
  for (int i = 1; i <= 2; ++i)
    place.Run({"installfrompath", MakeAsset(work, i)});
  place.Run({"commit", Kuid(1)});
  const std::string good = ReadFile(place / "assets.tdx");
  const std::string expected = place.Run({"status", Kuid(1)}).out + place.Run({"status", Kuid(2)}).out;

  std::string longer = good + "x", otherMagic = good, otherVersion = good;
  otherMagic[0] ^= 1;
  otherVersion[4] ^= 1;
  for (const std::string& broken :
       {good.substr(0, good.size() / 2), std::string(), longer, otherMagic, otherVersion}) {
    WriteFile(place / "assets.tdx", broken);
    const std::string found = place.Run({"status", Kuid(1)}).out + place.Run({"status", Kuid(2)}).out;
    EXPECT_EQ(found, expected);
  }
  for (const char* name : {"assets.tdx", "cache/assets.tdx", "cache/assets.bku"})
    fs::remove(place / name);
  EXPECT_EQ(place.Run({"status", Kuid(1)}).out + place.Run({"status", Kuid(2)}).out, expected);
  EXPECT_TRUE(Exists(place / "assets.tdx"));
}

TEST(Survival, AKilledRunLosesNothing) {
  const Installation place;
  const ScratchFolder work;
  constexpr int kAssets = 4;
  for (int i = 1; i <= kAssets; ++i)
    place.Run({"installfrompath", MakeAsset(work, i)});
  for (int i = 1; i <= kAssets; ++i)
    place.Run({"commit", Kuid(i)});
  for (int round = 0; round < 24; ++round) {
    const int asset = round % kAssets + 1;
    const int child = place.Start({round % 2 == 0 ? "edit" : "commit", Kuid(asset)});
    std::this_thread::sleep_for(std::chrono::microseconds(400 * round));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
  for (int i = 1; i <= kAssets; ++i) {
    place.Run({"commit", Kuid(i)});
    const std::string status = place.Run({"status", Kuid(i)}).out;
    EXPECT_EQ(status, "+ " + Kuid(i) + " : eIadLme : SY;SCEN : Asset " + std::to_string(i) + "\n");
  }
  std::multiset<std::string> bodies;
  for (const std::string& file : FilesBelow(place / "local")) {
    if (file.ends_with("body.im")) bodies.insert(ReadFile(place / ("local/" + file)).substr(0, 1));
  }
  for (int i = 1; i <= kAssets; ++i)
    EXPECT_GE(bodies.count(std::string(1, static_cast<char>('a' + i))), 1u);
}

TEST(Survival, ToolsSideBySideWaitForEachOther) {
  const Installation place;
  const ScratchFolder work;
  std::vector<int> children;
  for (int i = 1; i <= 4; ++i)
    children.push_back(place.Start({"installfrompath", MakeAsset(work, i)}));
  std::multiset<std::string> given;
  for (int i = 0; i < 3; ++i)
    given.insert(place.Run({"generatekuid"}).out);
  for (const int child : children) {
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  }
  EXPECT_EQ(std::set<std::string>(given.begin(), given.end()).size(), given.size());
  for (int i = 1; i <= 4; ++i)
    EXPECT_EQ(place.Run({"status", Kuid(i)}).code, 0) << i;
}

TEST(Survival, AnIndexThatCannotBeWrittenIsSaid) {
  const Installation place;
  place.Run({"version"});
  // A folder with content under the file's name can't be replaced, not even by root.
  fs::remove(place / "assets.tdx");
  WriteFile(place / "assets.tdx/in the way", "x");
  WriteFile(place / "cache/assets.tdx/in the way", "x");
  const ToolResult result = place.Run({"version"});
  EXPECT_EQ(result.code, 255);
  EXPECT_NE(result.err.find("-The asset index could not be written\n"), std::string::npos) << result.err;
}

}  // namespace
