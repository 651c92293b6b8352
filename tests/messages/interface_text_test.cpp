#include "frontend/messages/interface_text.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "engine/file.h"
#include "tagdata/morvex_ex.h"
#include "tests/scratch_folder.h"
#include "tests/test_files.h"

namespace morvex {
namespace {

const Nox::PString kKey("$key");

// A folder of interface texts in the place of the installation's.
class InterfaceTextTest : public testing::Test {
 protected:
  InterfaceTextTest() { Nox::File::Subst(Nox::PString("data"), folder_.path(), true); }
  ~InterfaceTextTest() override { Nox::File::Subst(Nox::PString("data"), "", true); }

  void WriteText(const std::string& name, const std::string& content) { PutFile(folder_ / name, content); }
  void WriteCompiled(const std::string& name, const std::string& value) {
    TagContainer soup;
    soup.SetString(kKey, value);
    ASSERT_TRUE(soup.Save(Nox::PString(), folder_ / name));
  }

  const ScratchFolder folder_;
};

TEST_F(InterfaceTextTest, CompiledFileWinsUnlessItIsDamaged) {
  WriteText("interfacetext.txt", "$key \"from text\"\n");
  EXPECT_EQ(InterfaceTextDB().GetString(kKey, true), "from text");
  WriteCompiled("interfacetext.chump", "compiled");
  EXPECT_EQ(InterfaceTextDB().GetString(kKey, true), "compiled");
  std::filesystem::resize_file(folder_ / "interfacetext.chump", 20);
  EXPECT_EQ(InterfaceTextDB().GetString(kKey, true), "from text");
}

TEST_F(InterfaceTextTest, ThrowsWithoutAnyFile) {
  try {
    InterfaceTextDB();
    FAIL() << "no file was there";
  } catch (const MorvexEx& error) {
    EXPECT_STREQ(error.what(), "InterfaceTextDB> Unable to read interface file 'interfacetext.chump'");
    EXPECT_STREQ(error.Title(), "Morvex Error");
  }
}

TEST_F(InterfaceTextTest, MissingKeysHaveTheirOwnRules) {
  WriteText("interfacetext.txt",
            "$key x\ndovik_spec_text\n{\n  $key spec\n}\nscenario_text\n{\n  $key scene\n}\n");
  const InterfaceTextDB texts;
  const Nox::PString missing("$missing");
  for (int i = 0; i < 12; ++i)
    EXPECT_EQ(texts.GetString(missing, true), "");
  EXPECT_EQ(texts.GetSpecString(missing), "$missing");
  EXPECT_EQ(texts.GetScenarioString(missing), "");
  EXPECT_EQ(texts.GetSpecString(kKey), "spec");
  EXPECT_EQ(texts.GetScenarioString(kKey), "scene");
  EXPECT_EQ(texts.GetString(Nox::PString(), true), "");
}

TEST_F(InterfaceTextTest, LanguageChoosesTheFile) {
  WriteCompiled("interfacetext.chump", "Hello");
  WriteCompiled("interfaceGerman.chump", "Hallo");
  InterfaceTextDB::SetLanguage("xx");
  EXPECT_EQ(InterfaceTextDB().GetString(kKey, true), "Hello");
  InterfaceTextDB::SetLanguage("de");
  EXPECT_EQ(InterfaceTextDB().GetString(kKey, true), "Hallo");
  InterfaceTextDB::SetLanguage("NL");
  EXPECT_EQ(InterfaceTextDB().GetString(kKey, true), "Hallo") << "an unknown code changes nothing";
}

}  // namespace
}  // namespace morvex
