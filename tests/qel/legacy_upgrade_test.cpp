#include "validation/qel/legacy_upgrade.h"

#include "tests/qel/qel_fixture.h"
#include "validation/qel/legacy_kinds.h"
#include "validation/qel/soup_children.h"

namespace QELLib {
namespace {

using morvex::ChunkKind;

// A soup on one line, where each kind of value looks different: "text", 1 (int), 1.5f, <kuid:1:2>.
std::string Show(const TagContainer& soup) {
  std::string shown;
  for (uint32_t i = 0; i < soup.GetCount(); ++i) {
    const morvex::ChunkRef chunk = ChildAt(soup, i);
    if (i > 0) shown += " ";
    shown += soup.GetName(i).Text() + " ";
    const std::string text = TextOf(*chunk);
    switch (chunk->GetKind()) {
      case ChunkKind::kContainer:
        shown += "{" + Show(TagContainer(chunk)) + "}";
        break;
      case ChunkKind::kString:
        shown += "'" + text + "'";
        break;
      case ChunkKind::kFloat:
        shown += text + "f";
        break;
      default:
        shown += text;
    }
  }
  return shown;
}

// A tree, as Container::Load hands it on. Quotes are written as ', and line ends as |.
TagContainer Read(std::string text) {
  std::replace(text.begin(), text.end(), '\'', '"');
  std::replace(text.begin(), text.end(), '|', '\n');
  TagContainer config;
  morvex::ParseSoupText(config, text, true);
  return TakeAsTree(config);
}

// What every old configuration gets is taken off the front and the end of the answer.
constexpr std::string_view kBuild = "morvex-build 2.7f";
constexpr std::string_view kCategories = "category-era '1800s' category-class 'ZX' category-region '00'";

using Row = std::pair<const char*, const char*>;  // a configuration, and what it becomes

class LegacyUpgradeTest : public QelTest {
 protected:
  LegacyUpgradeTest() {
    Define("");
    Manager().SetAsset("", root_ / "local/asset");
  }

  std::string Upgrade(const std::string& text) {
    TagContainer config = Read(text);
    UpgradeLegacyConfig(config);
    std::string shown = Show(config);
    for (const std::string_view common : {kBuild, kCategories}) {
      const size_t at = shown.find(common);
      if (at == shown.npos) return "incomplete: " + shown;
      shown.erase(at, common.size() + (at + common.size() < shown.size() ? 1 : 0));
    }
    if (shown.ends_with(' ')) shown.pop_back();
    EXPECT_TRUE(ErrorHandler::Get()->GetRecords().empty()) << text;
    EXPECT_FALSE(Manager().loadFailed) << text;
    return shown;
  }
  void Check(const char* kind, const std::vector<Row>& rows) {
    const std::string head = "kind '" + std::string(kind) + "'";
    for (const auto& [config, upgraded] : rows)
      EXPECT_EQ(Upgrade(head + "|" + config), head + (*upgraded ? " " : "") + upgraded) << config;
  }
};

TEST_F(LegacyUpgradeTest, EveryKindLosesItsOldTags) {
  Check("product",
        {{"", ""},
         {"scriptlibrary 'lib'|classlibrary 'Class'|script 's'", "script 'lib' class 'Class'"},
         {"auteur 'A'|author 'B'", "author 'A'"},
         {"auteur ''|author 'B'|scriptlibrary", "author 'B'"},
         {"name 'n'|name-ru 'n'|name-es 'n'|name-fr 'n'|name-pl 'n'|name-de 'n'|name-it 'n'|name-cz 'n'|"
          "name-cn 'n'|name-nl 'n'|name-se 'n'",
          "name-se 'n'"},
         {"dovik 1|company 'c'|morvex 'm'|morvex_build 1.5|fontsize 1.5|fontcolor 1,2,3|type 't'|region 'r'|"
          "asset-filename 'f'",
          ""},
         {"height 1|mini 'm'|rgb 1,2,3|objremarks 'o'|running-numbers 1|light 1|night 'n'",
          "height 1 mini 'm' rgb 1,2,3f objremarks 'o' running-numbers 1 light 1 night 'n'"}});
  Check("Map", {{"region 'r'|type 't'", "region 'r'"}});
  TagContainer config = Read("category-class 'ZB'|category-era ''|morvex-build 1.3|kind 'x'");
  UpgradeLegacyConfig(config);
  EXPECT_EQ(Show(config),
            "category-class 'ZB' kind 'x' morvex-build 2.7f category-era '1800s' category-region '00'");
}

TEST_F(LegacyUpgradeTest, TheIconBecomesAThumbnail) {
  const char* const kThumbnail = "thumbnails {0 {image 'i.tga' width 64 height 64}}";
  for (const char* kind : {"behavior", "Behavior", "product"}) {
    Check(kind, {{"icon-texture 'i.tga'", kThumbnail},
                 {"icon-texture ''", "icon-texture ''"},
                 {"icon-texture 'i.tga'|thumbnails {|}", "icon-texture 'i.tga' thumbnails {}"}});
  }
}

TEST_F(LegacyUpgradeTest, SoundsAreNumbered) {
  Check("traincar",
        {{"bogeys {|}|soundscript { idle { sound { a.wav|b.wav|}|distance 5,10|} other { } plain 'x' }",
          "bogeys {} soundscript {idle {sound {0 'a.wav' 1 'b.wav'} distance 5,10f} other {} plain 'x'}"},
         {"bogeys {|}|soundscript { idle { sound { 0 'a.wav' b.wav|deep {|} 7 8|} } }",
          "bogeys {} soundscript {idle {sound {0 'a.wav' 1 'b.wav' 2 'deep' 7 '8'}}}"},
         {"bogeys {|}|soundscript 'x'", "bogeys {} soundscript 'x'"}});
}

TEST_F(LegacyUpgradeTest, NameEffectsGetTheirOwnNames) {
  Check("product", {{"night 'n'|mesh-table { a { effects { board { kind 'name' } set { kind 'name' name 'x' }"
                     " lamp { kind 'corona' } leaf 'x' } } b { } c 'x' }",
                     "mesh-table {a {effects {board {kind 'name' name 'board'} set {kind 'name' name 'x'}"
                     " lamp {kind 'corona'} leaf 'x'}} b {} c 'x'}"}});
}

TEST_F(LegacyUpgradeTest, VehiclesAndTheirBogeys) {
  Check("bogey",
        {{"origin 'o'|light 1", "origin 'o' light 1"},
         {"asset-filename 'b'|mesh-table {|}|origin 'o'", "mesh-table {} origin 'o'"},
         {"asset-filename 'b'|origin 'o'|objremarks 'o'|origregion 'o'|orgname 'o'|light 1",
          "mesh-table {default {mesh 'b.pm' auto-create 1} shadow {mesh 'b_shadow/b.pm' auto-create 1}}"}});
  Check("TrainCar",
        {{"", "bogeys {}"},
         {"asset-filename 'w'|running-numbers 1",
          "mesh-table {default {mesh 'w_body/w_body.pm' auto-create 1}"
          " shadow {mesh 'w_shadow/w_shadow.pm' auto-create 0}} bogeys {}"},
         {"asset-filename 'w'|mesh-table 'x'|bogeys {|}|bogey <kuid:1:2>",
          "mesh-table 'x' bogeys {} bogey <kuid:1:2>"},
         {"bogey-0 <kuid:1:3>|bogey-r <kuid:1:2>|bogey <kuid:1:1>",
          "bogeys {0 {bogey <kuid:1:1> reversed 0} 1 {bogey <kuid:1:2> reversed 1} 2 {bogey <kuid:1:3> "
          "reversed 0}}"},
         {"bogey-1 <kuid:1:1>|bogey-1-r '1:2'|bogey-0-r <kuid:1:3>|bogey-3 <kuid:1:4>",
          "bogey-3 <kuid:1:4> bogeys {0 {bogey <kuid:1:3> reversed 1} 1 {bogey <kuid:1:1> reversed 0}"
          " 2 {bogey <kuid:1:2> reversed 1}}"},
         {"bogey-1 <kuid:1:1>", "bogey-1 <kuid:1:1> bogeys {}"},
         {"bogey 'none'|bogey-r <NULL>|bogey-0 {|}", "bogey 'none' bogey-r <NULL> bogey-0 {} bogeys {}"}});
  Check("hornsound", {{"objremarks 'o'", ""}});
}

TEST_F(LegacyUpgradeTest, LinesAndTextures) {
  Check("track", {{"height 1|mini 'm'", ""}});
  Check("bridge", {{"height 1|mini 'm'", "height 1"}});
  for (const char* kind : {"texture", "groundTexture"}) {
    Check(kind, {{"rgb 1,2,3", ""},
                 {"asset-filename 'moss'", "texture 'moss.texture'"},
                 {"asset-filename 'moss'|texture 'a.texture'", "texture 'a.texture'"}});
  }
}

TEST_F(LegacyUpgradeTest, SceneryGetsNameBoardsAndLights) {
  WriteMeshes({{"house.im", {"a.name0", "a.name1", "a.name3"}}, {"shed.im", {"a.name1"}}});
  Check("scenery",
        {{"night 'n'|auto-animation 1", "night 'n' auto-animation 1"},
         {"asset-filename 'gone'|auto-animation 0", "mesh-table {default {auto-create 1 mesh 'gone.im'}}"},
         {"asset-filename 'shed'|night 'lit'|auto-animation 1",
          "mesh-table {default {auto-create 1 mesh 'shed.im' anim 'anim.kin' animation-loop-speed 1f}"
          " night {mesh 'lit/lit.im' night-mesh-base 'default'}}"},
         {"asset-filename 'house'|fontcolor 1,2,3|night ''",
          "mesh-table {default {auto-create 1 mesh 'house.im' effects"
          " {0 {kind 'name' att 'a.name0' fontcolor '1,2,3' name 'name'}"
          " 1 {kind 'name' att 'a.name1' fontcolor '1,2,3' name 'name'}}}}"},
         {"asset-filename 'house'|mesh-table {|}|night 'lit'|auto-animation 1",
          "mesh-table {} auto-animation 1"}});
}

TEST_F(LegacyUpgradeTest, JunctionsKeepTheirMeshesByName) {
  Check("mojunction", {{"", "mesh-table {}"},
                       {"mode0 'Main'|mode1 'branch'",
                        "mesh-table {main {mesh 'Main/Main.im' auto-create '1'}"
                        " branch {mesh 'branch/branch.im' auto-create '0'}}"},
                       {"mesh-table { a { } }|light 1|mode1 'B'",
                        "mesh-table {a {} b {mesh 'B/B.im' auto-create '0'}} light 1"}});
}

TEST_F(LegacyUpgradeTest, CrossingsGetTheTrackOfTheirMesh) {
  WriteMeshes({{"gate/gate.im",
                {"a.track0b", "a.track0a", "a.track1a", "a.road0a", "a.road0b", "a.road1a", "a.road1b"}},
               {"mode0/mode0.im", {"a.track1a", "a.track1b"}}});
  Check(
      "mocrossing",
      {{"track <kuid:1:1>|road <kuid:1:2>|mode0 'gate'|mode1 'x'",
        "mesh-table {default {mesh 'gate/gate.im' anim 'gate/anim.kin' auto-create 1}} attached-track"
        " {road0 {vertices {0 'a.road0a' 1 'a.road0b'} track <kuid:1:2> useadjoiningtracktype 1}"
        " road1 {vertices {0 'a.road1a' 1 'a.road1b'} track <kuid:1:2> useadjoiningtracktype 1}"
        " track0 {vertices {0 'a.track0a' 1 'a.track0b'} track <kuid:1:1> useadjoiningtracktype 1}}"},
       {"",
        "mesh-table {default {mesh 'mode0/mode0.im' anim 'mode0/anim.kin' auto-create 1}} attached-track {}"},
       {"track <kuid:1:1>|mode0 'gone'",
        "mesh-table {default {mesh 'gone/gone.im' anim 'gone/anim.kin' auto-create 1}}"},
       {"attached-track {|}|mode0 'gate'",
        "attached-track {} mesh-table {default {mesh 'gate/gate.im' anim 'gate/anim.kin' auto-create 1}}"},
       {"road <kuid:1:2>|mesh-table {|}|mode0 'gate'", "mesh-table {} mode0 'gate'"}});
}

TEST_F(LegacyUpgradeTest, TurntablesGetTheTrackOfBothMeshes) {
  WriteMeshes({{"pit/pit.im", {"a.otrack0a", "a.otrack0b", "a.itrack0a", "a.itrack0b"}},
               {"mode1/mode1.im", {"a.itrack0a", "a.itrack0b", "a.itrack1a"}}});
  Check("turntable",
        {{"track <kuid:1:1>|mode0 'pit'",
          "mesh-table {default {mesh 'pit/pit.im' auto-create 1} turntable {mesh 'mode1/mode1.im'}} "
          "attached-track"
          " {tracko0 {vertices {0 'a.otrack0a' 1 'a.otrack0b'} track <kuid:1:1> useadjoiningtracktype 1}"
          " tracki0 {vertices {0 'a.itrack0a' 1 'a.itrack0b'} track <kuid:1:1> useadjoiningtracktype 1}}"},
         {"track <kuid:1:1>|mode0 'pit'|mode1 'gone'",
          "mesh-table {default {mesh 'pit/pit.im' auto-create 1} turntable {mesh 'gone/gone.im'}}"},
         {"mode0 'pit'|attached-track {|}",
          "attached-track {} mesh-table {default {mesh 'pit/pit.im' auto-create 1} turntable {mesh "
          "'mode1/mode1.im'}}"},
         {"track <kuid:1:1>|mesh-table {|}|mode0 'pit'", "mesh-table {} mode0 'pit'"}});
}

TEST_F(LegacyUpgradeTest, InteriorsGetAMeshTableAndCameras) {
  Check("interior",
        {{"", "cameradefault 0"},
         {"cameradefault 2|mesh 'cab.im'",
          "cameradefault 2 mesh-table {default {mesh 'cab.im' auto-create 1}}"},
         {"attachment { lever { mesh 'l.im' att 'a.l' } knob { att 'a.k' att-parent 'lever' } bare { mesh "
          "'b.im' } "
          "leaf 'x' }|mesh 'cab.im'|camera 1,2,3,4.5",
          "mesh-table {lever {mesh 'l.im' att 'a.l' att-parent 'default'} knob {att 'a.k' att-parent 'lever'}"
          " default {mesh 'cab.im' auto-create 1}} cameralist {camera0 1,2,3,4.5,0,0f} cameradefault 0"},
         {"camera 1,2,3,4|cameralist { camera0 'x' }|mesh-table { a { } }|mesh 'cab.im'|mesh {|}",
          "cameralist {camera0 'x' camera1 1,2,3,4,0,0f} mesh-table {a {}} mesh {} cameradefault 0"},
         {"camera 'front'", "camera 'front' cameradefault 0"}});
}

// Only what is older than build 2.5 is rewritten, and it is judged as what it has become.
TEST_F(LegacyUpgradeTest, OldBuildsAreUpgradedBeforeTheyAreJudged) {
  Define("interior\n{\ntop-level 1\nsubpossibilities\n{\nkind { kind \"value\" type \"string\" }\n" +
             kCommonTags +
             "cameradefault { kind \"value\" type \"int\" }\n"
             "cameralist { kind \"element\" element-type \"list\" }\n}\n}\n",
         "list { tagarray { kind \"value\" type \"floatlist\" } }");
  const std::string config = "kind \"interior\"\ncamera 1,2,3,4\n";
  for (const char* old : {"", "morvex-build 2.4\n", "morvex-build \"2.49\"\n"}) {
    Write("local/asset/config.txt", config + old);
    EXPECT_EQ(JudgeFolder(), "good") << old;
  }
  EXPECT_EQ(Judge(config + "morvex-build 2.5\n"), "bad\nerror 107 camera interior");
}

}  // namespace
}  // namespace QELLib
