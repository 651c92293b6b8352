#include "validation/qel/container.h"

#include "tagdata/chump_file.h"
#include "tagdata/chunk_writer.h"
#include "tests/qel/qel_fixture.h"

namespace QELLib {
namespace {

// One kind with something of everything; "base" is inherited, "deep" by that.
constexpr const char* kKinds = R"(
thing {
  top-level 1
  inherit { base { } }
  subpossibilities {
    kind { kind "value" type "string" }
    morvex-build { kind "value" type "float" }
    username { kind "value" type "string" compulsory "1" }
    description { kind "value" type "string" }
    must { kind "value" type "string" compulsory "1" default "parent" }
    colour { kind "value" type "combobox" source "colours.txt" default "red" }
    colours { kind "value" type "listbox" source "colours.txt" }
    category-region { kind "value" type "string" }
    category-era { kind "value" type "string" }
    parts { kind "element" element-type "parts" compulsory "1" }
    wheels { kind "container" container-type0 "steel-wheel" container-type1 "wood-wheel" }
    nothing { kind "container" container-type0 "undefined" }
    puff { icon "smoke" }
    strange { kind "other" }
    string-table { kind "element" element-type "texts" }
  }
  obsolete-tag { old { } gone { } }
}
inner { }
)";
constexpr const char* kContainers = R"(
base {
  inherit { deep { } }
  subpossibilities { based { kind "value" type "int" } basket { kind "element" element-type "parts" } }
}
deep { inherit { thing { } deep { } } tagarray { kind "value" type "float" } obsolete-tag { ancient { } } }
parts { array-element { part { numarray "1" kind "element" element-type "part" } } }
part {
  savingname "piece"
  subpossibilities {
    file { kind "value" type "string" }
    rate { kind "value" type "float" compulsory "1" }
    count { kind "value" type "float" compulsory "1" default "4" }
  }
}
steel-wheel { subpossibilities { kind { kind "value" type "string" } } }
wood-wheel { subpossibilities { kind { kind "value" type "string" } } }
smoke { tagarray { kind "value" type "float" } }
texts { tagarray { kind "value" type "doublestring" } }
)";
const std::string kGood = "kind \"Thing\"\nusername \"u\"\nmust \"m\"\nparts\n{\n}\n";

class ContainerTest : public QelTest {
 protected:
  ContainerTest() { Define(kKinds, kContainers); }

  std::string TreeOf(const Container& node) {
    std::string text = node.kindName.Text() + "(";
    for (const auto& tag : node.tags) {
      if (tag->name != "morvex-build") text += tag->name.Text() + "=" + tag->value + " ";
    }
    for (const auto& child : node.children)
      text += child->name.Text() + ":" + TreeOf(*child) + " ";
    return text + ")";
  }
  // The tree of a configuration, and what was found on the way.
  std::string Fill(const std::string& text) {
    morvex::TagContainer config;
    morvex::ParseSoupText(config, "morvex-build 2.7\n" + text, true);
    return Fill(std::move(config));
  }
  std::string Fill(morvex::TagContainer config) {
    Manager().LoadDefinitions(false);
    ErrorHandler::Get()->Clear();
    Container root;
    std::string result = root.Load(config) ? TreeOf(root) : "false";
    for (const ErrorRecord& record : ErrorHandler::Get()->GetRecords()) {
      result += "; " + record.text;
      while (result.ends_with(" %s"))
        result.resize(result.size() - 3);
    }
    return result;
  }
};

TEST_F(ContainerTest, FindsTheDefinitionOfEachChild) {
  const std::string known = "thing(kind=Thing username=u must=m ";
  const std::vector<std::pair<const char*, std::string>> rows = {
      {"", known + "parts:parts() )"},
      {"based 7", known + "based=7 parts:parts() )"},
      {"free 1.5", known + "free=1.5 parts:parts() )"},
      {"empty \"\"", known + "parts:parts() )"},
      {"description-de \"d\"", known + "description-de=d parts:parts() )"},
      {"colour \"green\"", known + "colour=green parts:parts() )"},
      {"colour \"blue\"", known + "colour= parts:parts() ); 116 blue colour"},
      {"colours \"x;green\"", known + "colours=x;green parts:parts() )"},
      {"colours \"x;y\"", known + "colours= parts:parts() ); 116 x;y colours"},
      {"wheels\n{\nkind \"wood\"\n}", known + "parts:parts() wheels:wood-wheel(kind=wood ) )"},
      {"wheels\n{\nkind \"?\"\n}", known + "parts:parts() wheels:steel-wheel(kind=? ) )"},
      {"string-table-de\n{\na \"b\"\n}", known + "parts:parts() string-table-de:texts(a=b ) )"},
      {"smoke2\n{\nx 1\n}", known + "parts:parts() smoke2:smoke(x=1 ) )"},
      {"puff\n{\nx 1\n}", known + "parts:parts() puff:smoke(x=1 ) )"},
      {"basket\n{\n}", known + "parts:parts() basket:parts() )"},
      {"gone\n{\n}", known + "parts:parts() ); 117 gone thing"},
      {"ancient\n{\n}", known + "parts:parts() ); 117 ancient thing"},
      {"who\n{\n}", known + "parts:parts() ); 108 who; 107 who thing"},
      {"strange\n{\n}", known + "parts:parts() ); 113 strange"},
      {"nothing\n{\n}", "false; 110 undefined"},
      {"basket\n{\n0\n{\nrate 1\n}\n}",
       known + "parts:parts() basket:parts(0:part(rate=1 count=4 ) ) ); 114 count"},
      {"basket\n{\n7\n{\nfile \"f\"\ncount 1\n}\nx\n{\n}\n}",
       known + "parts:parts() basket:parts(7:part(file=f count=1 ) ) ); 108 x; 107 x basket"},
  };
  for (const auto& [more, tree] : rows)
    EXPECT_EQ(Fill(kGood + more), tree) << more;
}

TEST_F(ContainerTest, MakesWhatIsMissing) {
  EXPECT_EQ(Fill("kind \"thing\"\nparts\n{\n}\n"),
            "thing(kind=thing username= must=thing parts:parts() ); 114 username; 114 must");
  Manager().Details().license = Nox::PString("mine");
  EXPECT_EQ(Fill(kGood + "license \"\""), "thing(kind=Thing username=u must=m parts:parts() )");
}

TEST_F(ContainerTest, OldSpellingsBecomeTheNewOnes) {
  const auto root = [&](const std::string& text) {
    return Fill("kind \"thing\"\nmust \"m\"\nparts\n{\n}\n" + text);
  };
  const std::string head = "thing(kind=thing must=m ";
  EXPECT_EQ(root("name \"n\"\nasset-filename \"f\""), head + "asset-filename=f username=n parts:parts() )");
  EXPECT_EQ(root("asset-filename \"f\"\nrem \"x\"\nthumbnail 1\n.cache\n{\n}"),
            head + "asset-filename=f username=f parts:parts() )");
  EXPECT_EQ(
      root("username \"u\"\ncategory-era-0 \"1950\"\ncategory-era-1 \"1960s\"\ncategory-era-3 \"x\"\n"
           "category-region-0 \"de\"\ncategory-region-1 \"AT\""),
      head + "username=u category-era-3=x category-region=DE;AT category-era=1950s;1960s parts:parts() )");
}

TEST_F(ContainerTest, ChoosesTheDefinitionOfAKind) {
  const std::vector<std::pair<const char*, const char*>> rows = {
      {"kind \"Bridge\"\nheight -1.0", "bridge"},
      {"kind \"bridge\"\nheight 0.002", "tunnel"},
      {"kind \"bridge\"\nheight 0.001", "double-track"},
      {"kind \"bridge\"", "double-track"},
      {"kind \"track\"\nchunky_mesh \"a\"", "chunky-track"},
      {"kind \"track\"\nunit_mesh \"a\"", "mesh-reducing-track"},
      {"kind \"track\"", "track"},
      {"kind \"scenery\"\ntrackside 2", "scenery-trackside"},
      {"kind \"scenery\"", "scenery"}};
  std::string kinds;
  for (const auto& [config, kind] : rows)
    kinds += std::string(kind) + " { top-level \"1\" }\n";
  Define(kinds, "hidden { subpossibilities { } }");
  for (const auto& [config, kind] : rows)
    EXPECT_TRUE(Fill(config).starts_with(std::string(kind) + "(")) << config;
  EXPECT_EQ(Fill("kind \"hidden\""), "false; 112");
  EXPECT_EQ(Fill("kind \"" + std::string(100000, 'k') + "\""), "false; 112");
  EXPECT_EQ(Fill("kin \"hidden\""), "false; 115");
  EXPECT_EQ(Fill(""), "false; 115");
}

TEST_F(ContainerTest, WalksBothOfTwins) {
  morvex::ChunkWriter writer;
  writer.String("kind", "thing");
  writer.String("morvex-build", "2.7");
  writer.String("username", "u");
  for (const char* kind : {"steel", "wood"}) {
    writer.BeginContainer("wheels");
    writer.String("kind", kind);
    writer.EndContainer();
  }
  for (const char* value : {"m", "dropped"})
    writer.String("must", value);
  writer.BeginContainer("parts");
  writer.EndContainer();
  const std::string image = writer.FileImage();
  const std::string expected =
      "thing(kind=thing username=u must=m wheels:steel-wheel(kind=steel ) "
      "wheels:wood-wheel(kind=wood ) parts:parts() )";
  EXPECT_EQ(Fill(morvex::ReadChumpImage(morvex::ACSRawDataCore::CopyBytes(image.data(), image.size()))),
            expected);
}

TEST_F(ContainerTest, DepthHasAnEnd) {
  Define("thing { top-level \"1\" inherit { box { } } }",
         "box { subpossibilities { in { kind \"element\" element-type \"box\" } } }");
  morvex::TagContainer config;
  for (int i = 0; i < 100000; ++i) {
    morvex::TagContainer outer;
    outer.SetContainer(Nox::PString("in"), std::move(config));
    config = std::move(outer);
  }
  config.SetString(Nox::PString("kind"), "thing");
  config.SetFloat(Nox::PString("morvex-build"), 2.7f);
  EXPECT_TRUE(Fill(config).ends_with("; 113 in; 107 kind thing; 107 morvex-build thing"));
}

TEST_F(ContainerTest, ExportWritesTypedValuesUnderTheirSavingNames) {
  morvex::TagContainer config, out;
  morvex::ParseSoupText(config, kGood + "basket\n{\n0\n{\nrate 1\ncount 2\n}\n}\n", true);
  Manager().LoadDefinitions(false);
  Container root;
  ASSERT_TRUE(root.Load(config));
  EXPECT_TRUE(root.Export(out));
  EXPECT_EQ(out.GetString(Nox::PString("kind")), "thing");
  const auto piece = out.GetContainer(Nox::PString("basket")).GetContainer(Nox::PString("piece"));
  EXPECT_EQ(piece.GetKind(Nox::PString("rate")), morvex::ChunkKind::kFloat);
  EXPECT_EQ(root.ContainerTypes().size(), 5u);

  morvex::TagContainer raw, only;
  raw.SetInt(Nox::PString("x"), 1);
  root.SetExtensions(raw);
  EXPECT_TRUE(root.Export(only));
  EXPECT_EQ(only.GetCount(), 1u);
  EXPECT_EQ(only.GetContainer(Nox::PString("extensions")).GetInt(Nox::PString("x")), 1);
}

}  // namespace
}  // namespace QELLib
