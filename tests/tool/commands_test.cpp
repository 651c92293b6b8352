// What each command says and how it ends, where no asset is concerned.

#include <gtest/gtest.h>

#include <tuple>

#include "tests/tool/tool_run.h"

namespace {

// The words of a line, each behind a blank; the last may be empty.
std::vector<std::string> Words(std::string_view line) {
  std::vector<std::string> words;
  for (size_t start = 0, end = 0; end != line.npos; start = end + 1) {
    end = line.find(' ', start);
    words.emplace_back(line.substr(start, end - start));
  }
  return words;
}

TEST(Commands, RefuseWhatTheyCannotUse) {
  const Installation place;
  WriteFile(place / "bin/notes.txt", "");
  const std::string unknown = "-The specified kuid does not exist in the database\n\n";
  const std::string nothing = "OK (0 Errors, 0 Warnings)\n";
  const std::tuple<const char*, int, std::string, std::string> rows[] = {
      {"VERSION", 0, "Build 3323\n", ""},
      {"version norender", 0, "Build 3323\n", ""},
      {"echo a b c", 0, "bc", ""},
      {"echo a", 0, "", ""},
      {"frobnicate", 255, "", "-Invalid argument, please check the help for the list of valid argument\n\n"},
      {"installcdp", 255, "", "-Please specify a .CDP file\n"},
      {"installfrompath ", 255, "", "-Please specify a path\n"},
      {"installfrompath /no/such/place", 255, "", "-The path you specified does not exist\n"},
      {"edit", 255, "", "-Please specify an asset to edit\n"},
      {"edit <kuid:1:2>", 255, nothing, unknown},
      {"printconfig", 255, "", "-Please specify an asset to edit\n"},
      {"printconfig nonsense", 255, "", unknown},
      {"commit", 255, "", "-Please specify an asset to commit\n"},
      {"commit <kuid:1:2>", 255, nothing, ""},
      {"revert", 255, "", "-Please specify an asset to revert\n"},
      {"revert <kuid:1:2>", 255, "", ""},
      {"delete", 255, "", "-Please specify an asset to delete\n"},
      {"delete <kuid:1:2>", 255, "", ""},
      {"status", 255, "", "please specify an asset to obtain the status from\n"},
      {"status <KUID:1:2>", 255, "", "-Could not retrieve the asset for for the kuid: <kuid:1:2>\n"},
      {"authors", 0, "", ""},
      {"searchbycategory -A", 255, "", "-You must enter a category to search for\n"},
      {"searchbycategory loc", 255, "",
       "-The category entered is either not valid or there's no asset that meets those criteria\n"},
      {"createcdp", 255, "", "- please specify a filepath to where you want to create your cdp\n"},
      {"createcdp out.txt nonsense", 255, "", "- the output filename has to be a .cdp\n"},
      {"createcdp out.cdp nonsense", 255, nothing, "- you have entered a wrong KUID\n"},
      {"createcdp out.cdp <KUID:1:2>", 255, "", "- the asset: <KUID:1:2> was not found localy\n"},
      {"createcdp no/such/folder.cdp", 255, nothing,
       "Unable to write archive file. Needs to be .cdp file extension\n"},
      {"importkeywords", 255, "", ""},
      {"backupkeywords other.name", 0, "", ""},
      {"ff2000", 0, "", ""},
      {"@missing.txt", 255, "",
       "-The file \"missing.txt\" does not exist, please specify a valid filename\n"},
      {"@notes.txt", 0, "", ""},
  };
  for (const auto& [line, code, out, err] : rows) {
    const ToolResult result = place.Run(Words(line));
    EXPECT_EQ(result.code, code) << line;
    EXPECT_EQ(result.out, out) << line;
    EXPECT_EQ(result.err, err) << line;
  }
  EXPECT_FALSE(Exists(place / "bin/out.cdp"));
  EXPECT_TRUE(Exists(place / "KeywordsDump.dat"));
  EXPECT_TRUE(Exists(place / "assets.tdx"));
}

TEST(Commands, HelpTouchesNothing) {
  const Installation place;
  const std::vector<std::string> before = Entries(place.root());
  const ToolResult help = place.Run({"HeLp", "norender"});
  EXPECT_EQ(help.code, 0);
  EXPECT_TRUE(help.out.starts_with("Welcome to the Morvex Util Tool!\n"));
  EXPECT_TRUE(help.out.ends_with("will be processed as a separate call of MorvexUtil\n"));
  const ToolResult bare = place.Run({});
  EXPECT_EQ(bare.code, 255);
  EXPECT_EQ(bare.out, help.out);
  EXPECT_EQ(Entries(place.root()), before);
}

TEST(Commands, NewKuidsCount) {
  const Installation place;
  EXPECT_EQ(place.Run({"generatekuid"}).out, "<KUID2:-2:1001:127>\n");
  EXPECT_EQ(place.Run({"generatekuid"}).out, "<KUID2:-2:1002:127>\n");
  WriteFile(place / "settings/kuid.txt", "base-kuid <kuid:12345:77>\n");
  EXPECT_EQ(place.Run({"generatekuid"}).out, "<KUID2:12345:78:0>\n");
}

TEST(Commands, FilesOfLines) {
  const Installation place;
  WriteFile(place / "bin/lines.txt",
            "version\r\n\r\necho x y\nstatus <kuid:1:2>\ncommit 1\nedit 1\nECHO x \"a b\"");
  const ToolResult result = place.Run({"@Lines.TXT"});
  EXPECT_EQ(result.out,
            "Build 3323\n\n"
            "y\n"
            "\n"
            "OK (0 Errors, 0 Warnings)\n\n"
            "OK (0 Errors, 0 Warnings)\n\n"
            "a b\n");
  EXPECT_EQ(result.code, 255);

  // A line that doesn't fit fails whole: neither its start nor its end may run.
  WriteFile(place / "bin/long.txt", "generatekuid " + std::string(600, 'x') + " version\nversion\n");
  const ToolResult tooLong = place.Run({"@long.txt"});
  EXPECT_EQ(tooLong.out, "\nBuild 3323\n\n");
  EXPECT_EQ(tooLong.err, "-Invalid argument, please check the help for the list of valid argument\n\n");
  EXPECT_EQ(tooLong.code, 255);
}

TEST(Commands, TheFolderUpdaterMakesNamesSafe) {
  const Installation place;
  const std::string asset = place / "work/inner/engine";
  WriteFile(asset + "/config.txt", "mesh \"Wheel#1.tga\"\nother SUB\\a=b.dat panel\n");
  WriteFile(asset + "/Wheel#1.tga", "picture");
  WriteFile(asset + "/body.im", std::string("\0\1 WHEEL#1.TGA \0", 16));
  WriteFile(asset + "/sub/a=b.dat", "mentions Wheel#1.tga");
  WriteFile(asset + "/x=.txt", "plain");
  WriteFile(asset + "/xx.txt", "in the way");
  const ToolResult result = place.Run({"ff2000", place / "work"}, "\n\n");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(ReadFile(asset + "/config.txt"), "mesh \"wheelx1.tga\"\nother sub\\axb.dat panel\n");
  EXPECT_EQ(ReadFile(asset + "/body.im"), std::string("\0\1 wheelx1.tga \0", 16));
  EXPECT_EQ(ReadFile(asset + "/sub/axb.dat"), "mentions Wheel#1.tga");
  EXPECT_EQ(ReadFile(asset + "/Wheelx1.tga"), "picture");
  EXPECT_EQ(ReadFile(asset + "/x=.txt") + ReadFile(asset + "/xx.txt"), "plainin the way");
  EXPECT_EQ(FilesBelow(asset).size(), 6u);
  EXPECT_NE(result.out.find("content:  Wheel#1.tga\n"), std::string::npos);
  EXPECT_NE(result.out.find("Updating file   " + asset + "/config.txt\n"), std::string::npos);
  EXPECT_NE(result.out.find("rename " + asset + "/x=.txt -> " + asset + "/xx.txt\n(failed!)\n"),
            std::string::npos);
}

}  // namespace
