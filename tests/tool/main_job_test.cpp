// The work a creator does: install, edit, commit, pack, install elsewhere.

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/tool/tool_run.h"

namespace {

constexpr const char* kKuid = "<kuid:100:200>";
constexpr const char* kQuiet = "OK (0 Errors, 0 Warnings)\n";

// An asset folder as a creator has it, outside of the installation.
std::string MakeAsset(const ScratchFolder& work) {
  const std::string folder = work / "Red Engine";
  WriteFile(folder + "/config.txt",
            "kuid <kuid:100:200>\nkind \"Scenery\"\nusername \"Red (engine)\"\ncategory-class \"BD\"\n"
            "morvex-build 2.9\nkuid-table\n{\n 0 <kuid:100:300>\n}\n");
  WriteFile(folder + "/Body.im", std::string(5000, 'm') + std::string("\0\1\2", 3));
  WriteFile(folder + "/art/Icon.TGA", "icon");
  WriteFile(folder + "/empty.dat", "");
  WriteFile(folder + "/Thumbs.db", "not part of it");
  return folder;
}

std::string StatusOf(const Installation& place, const std::string& kuid = kKuid) {
  return place.Run({"status", kuid}).out;
}

std::string OnlyFolderIn(const std::string& parent) {
  const std::vector<std::string> entries = Entries(parent);
  return entries.size() == 1 ? parent + "/" + entries[0] : "";
}

TEST(MainJob, CarriesAnAssetFromFolderToFolder) {
  const Installation first;
  const Installation second;
  const ScratchFolder work;
  const std::string source = MakeAsset(work);

  const ToolResult installed = first.Run({"InstallFromPath", work / "RED engine"});
  EXPECT_EQ(installed.code, 0);
  EXPECT_EQ(installed.out, "+ <kuid:100:200> : <kuid:100:200> was installed.\nOK (0 Errors, 0 Warnings)\n");
  EXPECT_EQ(StatusOf(first), "+ <kuid:100:200> : EIadlMe : SY;SCEN : Red (engine)\n");

  EXPECT_EQ(first.Run({"commit", "<KUID:100:200>"}).out, kQuiet);
  EXPECT_EQ(StatusOf(first), "+ <kuid:100:200> : eIadLMe : SY;SCEN : Red (engine)\n");
  const std::string local = OnlyFolderIn(first / "local");
  EXPECT_EQ(FilesBelow(local),
            (std::vector<std::string>{"art/icon.tga", "body.im", "config.chump", "empty.dat"}));
  EXPECT_TRUE(Entries(first / "editing").empty());

  const ToolResult edit = first.Run({"edit", kKuid});
  EXPECT_EQ(edit.out, std::string(kQuiet) + "+ <kuid:100:200> : " + first.root() + "/editing/Red _engine_\n");
  EXPECT_EQ(first.Run({"edit", kKuid}).out, edit.out);
  const std::string open = first / "editing/Red _engine_";
  WriteFile(open + "/new.gs", "script");
  EXPECT_EQ(first.Run({"createcdp", work / "no.cdp", kKuid}).code, 0)
      << "an open asset leaves the package empty";
  EXPECT_EQ(first.Run({"commit", kKuid}).code, 0);

  const std::string package = work / "Pack.CDP";
  const ToolResult packed = first.Run({"createcdp", package, kKuid});
  EXPECT_EQ(packed.out, std::string(kQuiet) + "- successfuly packaged those kuid\n");
  EXPECT_EQ(packed.code, 0);

  const ToolResult unpacked = second.Run({"installcdp", package});
  EXPECT_EQ(unpacked.out, "+ <kuid:100:200> : <kuid:100:200> was installed.\nOK (0 Errors, 0 Warnings)\n");
  EXPECT_EQ(StatusOf(second), "+ <kuid:100:200> : eIadLMe : SY;SCEN : Red (engine)\n");
  const std::string before = OnlyFolderIn(first / "local");
  const std::string after = OnlyFolderIn(second / "local");
  ASSERT_EQ(FilesBelow(before), FilesBelow(after));
  for (const std::string& file : FilesBelow(before)) {
    EXPECT_EQ(ReadFile(before + "/" + file), ReadFile(after + "/" + file)) << file;
  }
  EXPECT_EQ(first.Run({"printconfig", kKuid}).out, second.Run({"printconfig", kKuid}).out);
  EXPECT_EQ(ReadFile(source + "/Body.im"), ReadFile(after + "/body.im"));

  const ToolResult again = second.Run({"installcdp", package});
  EXPECT_EQ(again.code, 255);
  EXPECT_TRUE(again.out.starts_with("! <kuid:100:200> : ")) << again.out;
  EXPECT_TRUE(again.out.ends_with("OK (0 Errors, 1 Warnings)\n"));
}

TEST(MainJob, PrintsTheConfiguration) {
  const Installation place;
  const ScratchFolder work;
  place.Run({"installfrompath", MakeAsset(work)});
  EXPECT_EQ(place.Run({"printconfig", kKuid}).out,
            "+ Start of <kuid:100:200> dump\n\xEF\xBB\xBF\r\n"
            "kuid\t\t\t\t\t\t\t<kuid:100:200>\r\n"
            "username\t\t\t\t\t\t\"Red (engine)\"\r\n"
            "category-class\t\t\t\t\t\t\"BD\"\r\n"
            "morvex-build\t\t\t\t\t\t2.9\r\n"
            "kuid-table {\r\n"
            "\t0\t\t\t\t\t\t<kuid:100:300>\r\n"
            "}\r\n"
            "kind\t\t\t\t\t\t\t\"scenery\"\r\n"
            "\n+ End of <kuid:100:200> dump\n");
}

TEST(MainJob, RevertsAndDeletes) {
  const Installation place;
  const ScratchFolder work;
  place.Run({"installfrompath", MakeAsset(work)});
  EXPECT_EQ(place.Run({"revert", kKuid}).code, 255) << "never committed, so there is nothing to go back to";
  EXPECT_EQ(Entries(place / "editing").size(), 1u);
  place.Run({"commit", kKuid});
  place.Run({"edit", kKuid});
  WriteFile(place / "editing/Red _engine_/extra.txt", "x");
  EXPECT_EQ(place.Run({"revert", kKuid}).code, 0);
  EXPECT_TRUE(Entries(place / "editing").empty());
  EXPECT_EQ(FilesBelow(OnlyFolderIn(place / "local")).size(), 4u);
  EXPECT_EQ(place.Run({"revert", kKuid}).code, 255);
  EXPECT_EQ(place.Run({"delete", kKuid}).code, 0);
  EXPECT_TRUE(Entries(place / "local").empty());
  EXPECT_EQ(place.Run({"status", kKuid}).code, 255);
}

TEST(MainJob, ACommitRefusesWhatCannotTravel) {
  const struct {
    std::string file, message;
  } rows[] = {
      {"config.chump", "holds both config.txt and config.chump"},
      {"run.exe", "names or types of some of its files are not allowed"},
      {"b\xC3\xA4r.txt", "names or types of some of its files are not allowed"},
  };
  for (const auto& row : rows) {
    const Installation place;
    const ScratchFolder work;
    place.Run({"installfrompath", MakeAsset(work)});
    const std::string open = OnlyFolderIn(place / "editing");
    WriteFile(open + "/" + row.file, "x");
    const ToolResult commit = place.Run({"commit", kKuid});
    EXPECT_EQ(commit.code, 255) << row.file;
    EXPECT_NE(commit.out.find(row.message), std::string::npos) << commit.out;
    EXPECT_EQ(FilesBelow(open).size(), 5u) << "the edit stays as it was";
    EXPECT_EQ(StatusOf(place)[19], 'E');
  }
}

TEST(MainJob, SearchesAndListsAuthors) {
  const Installation place;
  const ScratchFolder work;
  for (int i = 1; i <= 3; ++i) {
    WriteFile(work / std::to_string(i) + "/config.txt",
              "kuid <kuid:" + std::to_string(i * 5) + ":7>\nkind \"" + (i == 2 ? "texture" : "scenery") +
                  "\"\nusername \"name " + std::to_string(9 - i) + "\"\nmorvex-build 2.9\n");
  }
  place.Run({"installfrompath", work.path()});
  for (const char* kuid : {"<kuid:5:7>", "<kuid:10:7>", "<kuid:15:7>"})
    place.Run({"commit", kuid});
  EXPECT_EQ(place.Run({"searchbycategory", "scen"}).out,
            "+ 2 : assets matching the specified criteria\n+ #0 : <kuid:15:7>\n+ #1 : <kuid:5:7>\n");
  EXPECT_EQ(place.Run({"SearchByCategory", "-a", "-scen"}).out,
            "+ 1 : assets matching the specified criteria\n+ #0 : <kuid:10:7>\n");
  EXPECT_EQ(place.Run({"searchbycategory"}).out.substr(0, 4), "+ 3 ");
  EXPECT_EQ(place.Run({"authors"}).out, "#15\n#10\n#5\n");

  EXPECT_EQ(place.Run({"backupkeywords"}).code, 0);
  WriteFile(place / "KeywordsDump.dat", ReadFile(place / "KeywordsDump.dat") + "<kuid:9:9> \"unknown\"\n");
  EXPECT_EQ(place.Run({"importkeywords"}).code, 0);
}

}  // namespace
