// What a creator learns of an asset's faults: the last letter of its status after the commit.

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "tests/tool/tool_run.h"

namespace fs = std::filesystem;

namespace {

// Installs and commits every asset below `folder` in one run, and gives the status line of each KUID asked for.
std::string Judge(const Installation& place, const std::string& folder,
                  const std::vector<std::string>& kuids) {
  std::string lines = "installfrompath \"" + folder + "\"\n";
  for (const std::string& kuid : kuids)
    lines += "commit " + kuid + "\n";
  WriteFile(place / "bin/lines.txt", lines);
  place.Run({"@lines.txt"});
  lines.clear();
  for (const std::string& kuid : kuids)
    lines += "status " + kuid + "\n";
  WriteFile(place / "bin/lines.txt", lines);
  return place.Run({"@lines.txt"}).out;
}

// The KUID in the configuration, as creators write it.
std::string KuidOf(const std::string& config) {
  const size_t start = config.find("<k") != std::string::npos ? config.find("<k") : config.find("<K");
  return config.substr(start, config.find('>', start) + 1 - start);
}

TEST(Validation, SamplesHaveNoErrors) {
  const Installation place;
  const ScratchFolder work;
  std::vector<std::string> kuids;
  for (const auto& entry : fs::directory_iterator(MORVEX_SAMPLES)) {
    if (!fs::exists(entry.path() / "config.txt")) continue;
    fs::copy(entry.path(), work / entry.path().filename().string(), fs::copy_options::recursive);
    kuids.push_back(KuidOf(ReadFile(entry.path() / "config.txt")));
  }
  ASSERT_GE(kuids.size(), 20u);
  std::istringstream lines(Judge(place, work.path(), kuids));
  size_t judged = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.empty()) continue;
    ++judged;
    EXPECT_NE(line.find(" : eIadLme : "), std::string::npos) << line;
  }
  EXPECT_EQ(judged, kuids.size());
  const std::string wagon = place.Run({"printconfig", "<kuid:523841:1023>"}).out;
  EXPECT_NE(wagon.find("asset-filename"), std::string::npos) << "an upgrade changes nothing on disk";
  EXPECT_EQ(wagon.find("mesh-table"), std::string::npos);
}

// The table in samples/faulty says how each of them ends: | `folder` | `<kuid>` | what | `E` or `e` | why |
TEST(Validation, FaultySamplesEndAsTheirTableSays) {
  std::vector<std::string> kuids;
  std::vector<std::string> letters;
  std::istringstream table(ReadFile(MORVEX_SAMPLES "/faulty/README.md"));
  for (std::string row; std::getline(table, row);) {
    std::vector<std::string> cells;
    std::istringstream rest(row);
    for (std::string cell; std::getline(rest, cell, '|');)
      cells.push_back(cell);
    if (cells.size() < 6 || cells[2].find("<kuid") == std::string::npos) continue;
    kuids.push_back(KuidOf(cells[2]));
    letters.push_back(cells[4].find('E') != std::string::npos ? "E : " : "e : ");
  }
  ASSERT_GE(kuids.size(), 20u);
  const Installation place;
  const std::string found = Judge(place, MORVEX_SAMPLES "/faulty", kuids);
  for (size_t i = 0; i < kuids.size(); ++i) {
    const size_t start = found.find("+ " + kuids[i] + " : ");
    ASSERT_NE(start, std::string::npos) << kuids[i];
    const size_t last = start + kuids[i].size() + 5 + 6;
    EXPECT_EQ(found.substr(last, 4), letters[i]) << found.substr(start, found.find('\n', start) - start);
  }
}

// A mesh asks for a material that nobody makes; with no renderer nobody is asked.
TEST(Validation, MaterialsCountOnlyWhereTheEngineDraws) {
  const std::string kuid = "<kuid:523841:2045>";
  const Installation place;
  place.Run({"installfrompath", MORVEX_SAMPLES "/faulty/mesh_of_velvet"});
  place.Run({"commit", kuid});
  EXPECT_NE(place.Run({"status", kuid}).out.find("E : "), std::string::npos);
  place.Run({"edit", kuid});
  place.Run({"commit", kuid, "norender"});
  EXPECT_NE(place.Run({"status", kuid}).out.find("e : "), std::string::npos);
}

}  // namespace
