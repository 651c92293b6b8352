// The definitions, texts and samples as they are shipped.

#include <fstream>
#include <sstream>

#include "tests/qel/qel_fixture.h"

namespace QELLib {
namespace {

class ShippedDataTest : public QelTest {
 protected:
  ShippedDataTest() {
    std::filesystem::copy(
        MORVEX_QELDATA, root_ / "bin/QELData",
        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    Start();
  }

  // "good" or "bad" and what was said.
  std::string JudgeSample(const std::filesystem::path& sample) {
    std::filesystem::remove_all(root_ / "local/asset");
    std::filesystem::create_directories(root_ / "local");
    std::filesystem::copy(sample, root_ / "local/asset", std::filesystem::copy_options::recursive);
    return JudgeFolder();
  }
};

TEST_F(ShippedDataTest, SamplesAreGood) {
  size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(MORVEX_SAMPLES)) {
    if (!std::filesystem::exists(entry.path() / "config.txt")) continue;
    const std::string said = JudgeSample(entry.path());
    EXPECT_TRUE(said.starts_with("good")) << entry.path().filename() << "\n" << said;
    ++count;
  }
  EXPECT_GE(count, 10u);
}

// Without a database: who names an asset of the wrong category isn't found out here.
constexpr std::string_view kNeedsDatabase = "wrong_category";

// Rows of the table are "| `folder` | ... | `letter` | ...".
TEST_F(ShippedDataTest, FaultySamplesEndAsTheirTableSays) {
  std::ifstream readme(std::string(MORVEX_SAMPLES) + "/faulty/README.md");
  size_t count = 0;
  for (std::string line; std::getline(readme, line);) {
    const size_t first = line.find('`'), second = line.find('`', first + 1);
    if (!line.starts_with("| `") || second == line.npos) continue;
    const std::string folder =
        std::string(MORVEX_SAMPLES) + "/faulty/" + line.substr(first + 1, second - first - 1);
    if (folder.ends_with(kNeedsDatabase)) continue;
    const std::string said = JudgeSample(folder);
    const bool isFaulty = line.find("| `E` |") != line.npos;
    EXPECT_EQ(said.starts_with("bad"), isFaulty) << line << "\n" << said;
    ++count;
  }
  EXPECT_GE(count, 20u);
}

}  // namespace
}  // namespace QELLib
