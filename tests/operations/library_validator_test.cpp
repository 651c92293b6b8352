#include "database/operations/library_validator.h"

#include <memory>

#include "tests/operations/operations_fixture.h"

namespace morvex {
namespace {

class LibraryValidatorTest : public OperationsTest {
 protected:
  LibraryValidatorTest() {
    setenv("MORVEX_PRODUCTS", At("products.txt").c_str(), 1);
    Write("bin/QELData/kind.txt",
          "scenery\n{\ntop-level 1\nsubpossibilities\n{\nkuid { kind \"value\" type \"kuid\" }\n"
          "kind { kind \"value\" type \"string\" }\nmorvex-build { kind \"value\" type \"float\" }\n"
          "username { kind \"value\" type \"string\" }\n"
          "sound { kind \"value\" type \"kuidbrowser\" category \"TR;CMP;ESND\" }\n"
          "kuid-table { kind \"element\" element-type \"table\" }\n}\n"
          "obsolete-tag { asset-filename { } }\n}\ntable { tagarray { kind \"value\" type \"stringkuid\" } "
          "}\n");
    Write("bin/QELData/stringtable.txt", "");
    validator_ = std::make_unique<LibraryValidator>(At("bin/QELData"));
  }

  // Of an asset with these tags, installed and committed.
  bool HasErrors(const std::string& tags) {
    const KUID kuid(100, ++lastId_, 0);
    const std::string folder = "source" + std::to_string(lastId_);
    Write(folder + "/config.txt",
          "kuid " + kuid.TagText() + "\nkind \"scenery\"\nusername \"a\"\nmorvex-build 2.7\n" + tags);
    EXPECT_TRUE(InstallFolder(folder) == 1 && Commit(kuid)) << Said();
    return Record(kuid)->Has(AssetFlag::kHasErrors);
  }

  std::unique_ptr<LibraryValidator> validator_;
  int lastId_ = 0;
};

TEST_F(LibraryValidatorTest, JudgesWhatACommitLeaves) {
  EXPECT_FALSE(HasErrors(""));
  EXPECT_TRUE(HasErrors("unheard-of 1\n"));
  EXPECT_FALSE(HasErrors("sound <kuid:100:999>\n")) << "an asset that isn't here";
  EXPECT_TRUE(HasErrors("sound <kuid:100:1>\n")) << "an asset of another category";
}

}  // namespace
}  // namespace morvex
