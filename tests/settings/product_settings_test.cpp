#include "frontend/settings/product_settings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "frontend/settings/product_language.h"
#include "frontend/settings/product_registry.h"
#include "tests/scratch_folder.h"

namespace morvex {
namespace {

class ProductSettingsTest : public testing::Test {
 protected:
  ProductSettingsTest() { setenv("MORVEX_PRODUCTS", (folder_ / "new/products.txt").c_str(), 1); }
  ~ProductSettingsTest() override {
    ProductClose();
    unsetenv("MORVEX_PRODUCTS");
  }

  void Register(const std::string& program, int32_t build, const std::string& language) {
    EXPECT_TRUE(ProductOpen(program));
    EXPECT_TRUE(ProductSetBuild(build));
    EXPECT_TRUE(ProductSetLanguage(language));
    EXPECT_TRUE(ProductSetInstallPath("/opt/" + language));
    ProductClose();
  }

  const ScratchFolder folder_;
};

TEST_F(ProductSettingsTest, EntriesAreFoundAgain) {
  EXPECT_FALSE(ProductOpenIndexed(0) || ProductSetBuild(1));
  EXPECT_EQ(ProductGetLanguage(), "");
  std::string code = "xx";
  ProductLanguageToWindows(code);
  EXPECT_EQ(code, "US");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "new")) << "asking makes nothing";
  ProductEnumerate(kMorvexClass, kMorvexClass);
  Register("/opt/a/Game", 10, "DE");
  Register("/opt/b/Game", 30, "FR");
  Register("/OPT/A/game", 30, "DE");
  Register("/opt/c/Game", 30, "DE");
  ASSERT_EQ(ProductEnumerate("MORVEXCLASSIC", "morvexclassic"), 3u);
  ASSERT_TRUE(ProductOpenIndexed(0));
  EXPECT_EQ(ProductGetExePath(), "/opt/a/Game");
  EXPECT_EQ(ProductGetClass(), "MorvexClassic");
  EXPECT_EQ(ProductGetBuild(), 30);
  EXPECT_EQ(ProductGetInstallPath(), "/opt/DE");
  EXPECT_TRUE(ProductSetVersion("2.10"));
  EXPECT_TRUE(ProductSetAutoSave(true));
  EXPECT_TRUE(ProductSetName(std::string(300, 'n')));
  EXPECT_TRUE(ProductOpenIndexed(0));
  EXPECT_EQ(ProductGetVersion(), "2.10");
  EXPECT_TRUE(ProductGetAutoSave());
  EXPECT_EQ(ProductGetName().size(), kMaxProductText);
  EXPECT_EQ(ProductBestForLanguage("de"), 0u) << "the first of two equal ones";
  EXPECT_EQ(ProductBestForLanguage("FR"), 1u);
  EXPECT_EQ(ProductBestForLanguage("PL"), std::nullopt);
}

TEST_F(ProductSettingsTest, DeletedNumbersAreUsedAgain) {
  std::ofstream(folder_ / "present");
  ProductEnumerate(kMorvexClass, kMorvexClass);
  for (const char* program : {"/missing/1", "/missing/2", "/missing/3"})
    Register(program, 1, "EN");
  Register(folder_ / "present", 1, "EN");
  ProductEnumerate(kMorvexClass, kMorvexClass);
  EXPECT_TRUE(ProductDelete(1));
  Register("/missing/4", 1, "EN");
  TagContainer family = LoadProductRegistry().GetContainer(RegistryTag(kMorvexClass));
  EXPECT_EQ(family.GetContainer(Nox::PString("1")).GetText(RegistryTag("ExePath")), "/missing/4");
  EXPECT_EQ(ProductEnumerate(kMorvexClass, kMorvexClass), 4u);
  EXPECT_TRUE(ProductPrune());
  EXPECT_EQ(ProductEnumerate(kMorvexClass, kMorvexClass), 1u);
  EXPECT_TRUE(ProductRegisterSelf(kMorvexClass));
  EXPECT_EQ(ProductEnumerate(kMorvexClass, kMorvexClass), 2u);
}

}  // namespace
}  // namespace morvex
