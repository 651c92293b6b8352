#include "engine/pstring.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace Nox {
namespace {

const PString kFileScope("file-scope");

TEST(PString, EqualTextIsOneNode) {
  EXPECT_EQ(PString("file-scope"), kFileScope);
  EXPECT_EQ(PString("file-scope").c_str(), kFileScope.c_str());
  EXPECT_NE(PString("File-Scope"), kFileScope);
  EXPECT_EQ(PString(std::string_view("a\0b", 3)).Length(), 3U);
  EXPECT_NE(PString(std::string_view("a\0b", 3)), PString("a"));
  EXPECT_EQ(PString("mixed").ToLower().c_str(), PString("mixed").c_str());
  EXPECT_EQ(PString(static_cast<const char*>(nullptr)), PString(""));
  EXPECT_STREQ(PString().ToLower().c_str(), "");
}

TEST(PString, ComparesByText) {
  EXPECT_LT(PString("A"), PString("a"));
  EXPECT_LT(PString("a"), PString("\xE4"));
  EXPECT_LT(PString(), PString("a"));
  EXPECT_EQ(PString("MiXeD").ToLower(), PString("mixed"));
  EXPECT_TRUE(PString("Ab").EqualsIgnoreCase("aB"));
}

// All threads make the same texts while the tables grow under them.
TEST(PString, ThreadsAgreeOnNodes) {
  constexpr int kTexts = 20000;
  std::vector<std::vector<PString>> made(4);
  std::vector<std::thread> threads;
  for (auto& mine : made) {
    threads.emplace_back([&mine] {
      for (int i = 0; i < kTexts; ++i)
        mine.emplace_back("Text " + std::to_string(i * 7919 % kTexts));
      for (int i = 0; i < kTexts; i += 100)
        mine.push_back(mine[static_cast<std::size_t>(i)].ToLower());
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  for (const auto& other : made)
    EXPECT_EQ(other, made[0]);
  EXPECT_EQ(made[0][1].View(), "Text 7919");
}

}  // namespace
}  // namespace Nox
