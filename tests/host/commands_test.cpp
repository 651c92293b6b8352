// Whole runs: what each command prints, in both forms, and how it ends.

#include <gtest/gtest.h>

#include <algorithm>

#include "host/command.h"
#include "tests/host/host_run.h"

namespace {

constexpr const char* kHouse = "<kuid:523841:1014>";
constexpr const char* kCrane = "<kuid2:523841:1013:1>";

std::string Text(const rapidjson::Value& value) {
  return value.IsNull() ? "null" : value.GetString();
}

TEST(HostCommands, HelpOnEveryLevelTouchesNothing) {
  const HostInstallation place;
  const std::vector<std::string> before = Entries(place.root());
  const ToolResult help = place.Host({"--help"});
  EXPECT_EQ(help.code, 0);
  const std::string page = ReadFile(MORVEX_MAN "/MorvexHost.1");
  for (const morvex::host::Command& command : morvex::host::Commands()) {
    EXPECT_NE(help.out.find(std::string("  ") + command.name + " "), std::string::npos) << command.name;
    EXPECT_NE(page.find(std::string(".Ss ") + command.name), std::string::npos)
        << "man page: " << command.name;
    const ToolResult own = place.Host({command.name, "--help"});
    EXPECT_EQ(own.code, 0);
    EXPECT_NE(own.out.find("--json"), std::string::npos) << command.name;
  }
  EXPECT_EQ(place.Host({"--version"}).out.substr(0, 11), "MorvexHost ");
  EXPECT_NE(place.Host({"completion", "bash"}).out.find("'MorvexHost package extract') words="),
            std::string::npos);
  EXPECT_EQ(Entries(place.root()), before);
}

TEST(HostCommands, ExitCodesTellWhatWentWrong) {
  const HostInstallation place;
  WriteFile(place / "plain.txt", "kind \"scenery\"\n");
  const std::pair<std::vector<std::string>, int> rows[] = {
      {{}, 2},
      {{"frobnicate"}, 2},
      {{"list", "--frob"}, 2},
      {{"list", "--rating", "9"}, 2},
      {{"list", "--modified-since", "yesterday"}, 2},
      {{"show", "nonsense"}, 2},
      {{"validate"}, 2},
      {{"package"}, 2},
      {{"convert", "a.png", "b.txt"}, 2},
      {{"show", "1:2"}, 3},
      {{"validate", "1:2"}, 3},
      {{"validate", place / "settings"}, 3},
      {{"deps", "1:2"}, 3},
      {{"clone", "1:2"}, 3},
      {{"package", "list", "no.cdp"}, 3},
      {{"package", "verify", place / "plain.txt"}, 1},
      {{"mesh", "no.im"}, 3},
      {{"mesh", place / "plain.txt"}, 2},
      {{"archive", "select", "1:2"}, 3},
      {{"list", "--root", "/nowhere"}, 5},
      {{"convert", place / "plain.txt", place / "no/such/folder/x.chump"}, 4},
      {{"convert", place / "plain.txt", place / "plain.chump"}, 0},
      {{"list"}, 0},
      {{"list", "--rating", "-1", "5"}, 0},
  };
  for (const auto& [arguments, code] : rows) {
    const ToolResult result = place.Host(arguments);
    const std::string shown = arguments.empty() ? "" : arguments[0];
    EXPECT_EQ(result.code, code) << shown << ": " << result.err;
    const bool isRefused = code > 1;
    EXPECT_EQ(result.err.empty() && isRefused, false) << shown;
    EXPECT_EQ(result.out.empty() || !isRefused, true) << shown << ": " << result.out;
  }
}

TEST(HostCommands, ListAndShowGiveTheSameObject) {
  const HostInstallation place;
  place.Install("bahnwaerterhaus", kHouse);
  place.Install("water_crane_v2", kCrane, false);
  int code = -1;
  const rapidjson::Document all = place.Json({"list"}, code);
  EXPECT_EQ(code, 0);
  ASSERT_EQ(all["assets"].Size(), 2u);
  const rapidjson::Value& house = all["assets"][0];
  const char* const keys[] = {"kuid",      "name",     "category",  "label",      "flags",     "region",
                              "era",       "keywords", "size",      "build",      "author",    "rating",
                              "installed", "modified", "edit_path", "local_path", "pack_name", "pack_path"};
  EXPECT_EQ(house.MemberCount(), std::size(keys));
  for (const char* key : keys)
    EXPECT_TRUE(house.HasMember(key)) << key;
  EXPECT_EQ(Text(house["kuid"]), kHouse);
  EXPECT_EQ(Text(house["name"]), "Bahnwärterhaus Krähental");
  EXPECT_EQ(Text(house["flags"]).substr(0, 5), "eIadL");
  EXPECT_EQ(house["rating"].GetInt(), -1);
  EXPECT_TRUE(Exists(place / Text(house["local_path"])));
  EXPECT_EQ(Text(all["assets"][1]["flags"]).substr(0, 5), "EIadl");
  EXPECT_TRUE(Exists(place / Text(all["assets"][1]["edit_path"])));

  const rapidjson::Document shown = place.Json({"show", "523841:1014"}, code);
  EXPECT_EQ(shown["assets"][0], house);
  const std::pair<std::vector<std::string>, std::string> rows[] = {
      {{"--open"}, kCrane},
      {{"--no-open"}, kHouse},
      {{"--local-copy", "--open"}, ""},
      {{"--name", "KRANE"}, ""},
      {{"--name", "CRANE"}, kCrane},
      {{"--exact-name", "water crane, SWIVELLING"}, kCrane},
      {{"--category", "BD|TO;LOC"}, kHouse},
      {{"--author", "7"}, ""},
      {{"--installed-until", "2001-01-01"}, ""},
      {{"--only", "523841:1013:1"}, kCrane},
  };
  for (const auto& [filter, found] : rows) {
    std::vector<std::string> arguments = {"list", "--kuids"};
    arguments.insert(arguments.end(), filter.begin(), filter.end());
    EXPECT_EQ(place.Host(arguments).out, found.empty() ? "" : found + "\n") << filter[0];
  }
}

TEST(HostCommands, ValidateTellsEveryFinding) {
  const HostInstallation place;
  int code = -1;
  const std::string faulty = MORVEX_SAMPLES "/faulty/";
  const rapidjson::Document below = place.Json({"validate", faulty + "below_zero"}, code);
  EXPECT_EQ(code, 1);
  const rapidjson::Value& asset = below["assets"][0];
  EXPECT_EQ(Text(asset["kuid"]), "<kuid:523841:2013>");
  EXPECT_EQ(Text(asset["path"]), faulty + "below_zero");
  EXPECT_FALSE(asset["clean"].GetBool());
  ASSERT_EQ(asset["findings"].Size(), 1u);
  const rapidjson::Value& finding = asset["findings"][0];
  EXPECT_EQ(Text(finding["severity"]) + " " + Text(finding["tag"]) + " " + Text(finding["container"]),
            "error mass traincar");
  EXPECT_FALSE(finding.HasMember("dropped"));

  // What a passing check found is there only when it is asked for.
  const std::string passing = faulty + "picture_as_mesh";
  const rapidjson::Document kept = place.Json({"validate", passing}, code);
  EXPECT_EQ(code, 0);
  EXPECT_TRUE(kept["assets"][0]["clean"].GetBool());
  EXPECT_EQ(kept["assets"][0]["findings"].Size(), 0u);
  const rapidjson::Document all = place.Json({"validate", "--all", passing}, code);
  EXPECT_EQ(code, 0);
  ASSERT_EQ(all["assets"][0]["findings"].Size(), 1u);
  EXPECT_TRUE(all["assets"][0]["findings"][0]["dropped"].GetBool());
  EXPECT_EQ(Text(all["assets"][0]["findings"][0]["container"]), "default");

  // A folder of folders, and what is installed.
  place.Install("bahnwaerterhaus", kHouse);
  const rapidjson::Document many = place.Json({"validate", faulty, kHouse}, code);
  EXPECT_EQ(code, 1);
  EXPECT_GT(many["assets"].Size(), 30u);
  EXPECT_EQ(place.Host({"validate", "--installed"}).code, place.Host({"validate", kHouse}).code);
}

TEST(HostCommands, CloneMakesAnAssetThatStandsInForTheOld) {
  const HostInstallation place;
  place.Install("bahnwaerterhaus", kHouse);
  int code = -1;
  const rapidjson::Document clone = place.Json({"clone", kHouse}, code);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(Text(clone["source"]), kHouse);
  EXPECT_TRUE(Exists(place / (Text(clone["edit_path"]) + "/config.txt")));
  EXPECT_EQ(place.Host({"list", "--open", "--kuids"}).out, Text(clone["kuid"]) + "\n");
  EXPECT_EQ(place.Host({"clone", "--new-version", kHouse}).code, 4);  // somebody else's
}

TEST(HostCommands, PackagesAreListedVerifiedAndUnpacked) {
  const HostInstallation place;
  place.Install("bahnwaerterhaus", kHouse);
  const std::string package = place / "house.cdp";
  ASSERT_EQ(place.Run({"createcdp", package, kHouse}).code, 0);
  int code = -1;
  const rapidjson::Document list = place.Json({"package", "list", package}, code);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(Text(list["contents_table"][0]), kHouse);
  const rapidjson::Value& asset = list["assets"][0];
  EXPECT_EQ(Text(asset["kuid"]) + Text(asset["compression"]), std::string(kHouse) + "LZSS");
  const auto files = asset["files"].GetArray();
  const auto wall = std::find_if(files.begin(), files.end(), [](const rapidjson::Value& file) {
    return Text(file["path"]) == "fassade.bmp";
  });
  ASSERT_NE(wall, files.end());
  EXPECT_EQ((*wall)["plain_size"].GetUint(), ReadFile(MORVEX_SAMPLES "/bahnwaerterhaus/fassade.bmp").size());
  EXPECT_LT((*wall)["coded_size"].GetUint(), (*wall)["plain_size"].GetUint());
  EXPECT_EQ(place.Host({"package", "verify", package}).code, 0);

  EXPECT_EQ(place.Host({"package", "extract", package, "--to", place / "out"}).code, 0);
  EXPECT_EQ(ReadFile(place / "out/kuid 523841 1014/fassade.bmp"),
            ReadFile(MORVEX_SAMPLES "/bahnwaerterhaus/fassade.bmp"));
  EXPECT_TRUE(Exists(place / "out/kuid 523841 1014/config.txt"));
  EXPECT_EQ(place.Host({"package", "extract", package, "--to", place / "out"}).code,
            4);  // nothing is overwritten
  EXPECT_EQ(place.Host({"package", "extract", package, "--to", place / "two", "--only", "1:2"}).code, 3);

  // Bytes of the picture changed.
  std::string bytes = ReadFile(package);
  for (size_t i = bytes.size() / 2; i < bytes.size() / 2 + 400; ++i)
    bytes[i] = static_cast<char>(bytes[i] ^ 0x5A);
  WriteFile(place / "damaged.cdp", bytes);
  EXPECT_EQ(place.Host({"package", "verify", place / "damaged.cdp"}).code, 1);
}

TEST(HostCommands, ArchivesTakeAssetsAndGiveThemBack) {
  const HostInstallation place;
  place.Install("bahnwaerterhaus", kHouse);
  const std::string archive = place / "old.arc";
  EXPECT_EQ(place.Host({"archive", "create", archive, kHouse}).code, 0);
  EXPECT_EQ(place.Host({"archive", "list", archive}).out, std::string(kHouse) + "\n");
  EXPECT_EQ(place.Run({"delete", kHouse}).code, 0);
  EXPECT_EQ(place.Host({"list", "--installed", "--kuids"}).out, "");
  EXPECT_EQ(place.Host({"archive", "select", kHouse}).code, 0);
  int code = -1;
  const rapidjson::Document restored = place.Json({"archive", "restore", archive}, code);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(Text(restored["restored"][0]), kHouse);
  EXPECT_EQ(place.Host({"list", "--installed", "--kuids"}).out, std::string(kHouse) + "\n");
}

TEST(HostCommands, MeshTellsWhatIsInAFileAndDrawsIt) {
  const HostInstallation place;
  const std::string mesh = MORVEX_SAMPLES "/bahnwaerterhaus/bahnwaerterhaus.im";
  int code = -1;
  const rapidjson::Document told = place.Json({"mesh", mesh, "--preview", place / "house.svg"}, code);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(Text(told["result"]) + " " + Text(told["kind"]), "OK im");
  ASSERT_EQ(told["levels"].Size(), 1u);
  size_t faces = 0;
  for (const rapidjson::Value& chunk : told["levels"][0]["chunks"].GetArray()) {
    EXPECT_EQ(chunk["indices"].GetUint(), chunk["faces"].GetUint() * 3);
    faces += chunk["faces"].GetUint();
  }
  const std::string svg = ReadFile(place / "house.svg");
  EXPECT_EQ(static_cast<size_t>(std::count(svg.begin(), svg.end(), 'M')), faces);
  EXPECT_EQ(svg.find("nan"), std::string::npos);

  WriteFile(place / "cut.im", ReadFile(mesh).substr(0, 40));
  const rapidjson::Document cut = place.Json({"mesh", place / "cut.im"}, code);
  EXPECT_EQ(code, 1);
  EXPECT_EQ(Text(cut["result"]).substr(0, 4), "RES_");
}

}  // namespace
