#include "tests/qel/qel_fixture.h"

namespace QELLib {
namespace {

// A kind whose tag "t" has an entry of the test's own, and a line of config that is judged by it.
class RulesTest : public QelTest {
 protected:
  std::string JudgeTag(const std::string& entry, const std::string& config,
                       const std::string& containers = "") {
    Define("thing\n{\ntop-level 1\nsubpossibilities\n{\nkind { kind \"value\" type \"string\" }\n" +
               kCommonTags + entry + "\n}\n}\n",
           containers);
    return Judge("kind \"thing\"\n" + config + "\n");
  }
};

TEST_F(RulesTest, NumbersAndSiblings) {
  const std::string kFloat = "t { kind \"value\" type \"floatlist\" validation { ";
  const std::string kOthers =
      " } }\nsnapmode { kind \"value\" type \"int\" }\ntype { kind \"value\" type \"string\" }\n"
      "a { kind \"value\" type \"int\" }\nb { kind \"value\" type \"int\" }\n"
      "collate-meshes { kind \"value\" type \"bool\" }";
  const char* const rows[][3] = {
      {"range { min \"0\" max \"10\" }", "t \"0\"", "good"},
      {"range { min \"0\" max \"10\" }", "t \"10\"", "good"},
      {"range { min \"0\" max \"10\" }", "t \"0, 10\"", "good"},
      {"range { min \"0\" max \"10\" }", "t 10.5", "bad\nerror 158 t 0 10"},
      {"range { max \"10\" }", "t \"-1\"", "bad\nerror 158 t  10"},
      {"ispositive { }", "t 0", "good"},
      {"ispositive { }", "t -0.5", "bad\nerror 156 t"},
      {"isnotzero { }", "t 1,0,2", "bad\nerror 157 t"},
      {"isnotzero { } ispositive { }", "t 0,-1", "bad\nerror 157 t\nerror 156 t"},
      {"unheard-of { }", "t 0", "good"},
      {"snapmodezero { }", "t 0", "bad\nerror 151 t"},
      {"snapmodezero { }", "t 0\nsnapmode 1", "bad\nerror 152 t"},
      {"snapmodezero { }", "t 0\nsnapmode 0", "good"},
      {"istracksidetype { }", "t 0", "bad\nerror 154 t type trackside"},
      {"istracksidetype { }", "t 0\ntype \"tower\"", "bad\nerror 153 type trackside t"},
      {"istracksidetype { }", "t 0\ntype \"trackside\"", "good"},
      {"needcollatemeshes { }", "t 0", "bad\nerror 155 t collate-meshes"},
      {"needcollatemeshes { }", "t 0\ncollate-meshes 0", "good"},
      {"mustbepaired { 0 \"a\" 1 \"b\" }", "t 0\na 1\nb 1", "good"},
      {"mustbepaired { 0 \"a\" 1 \"b\" }", "t 0\na 1", "bad\nerror 164 a b"},
      {"mustbepaired { 0 \"a\" 1 \"b\" }", "t 0", "bad\nerror 164 b a\nerror 164 a b"},
      {"notownparent { }", "t 0", "good"},
      {"mustbeinlightcontainer { }", "t 0", "bad\nerror 163"},
  };
  for (const auto& [rule, config, verdict] : rows)
    EXPECT_EQ(JudgeTag(kFloat + rule + kOthers, config), verdict) << rule << "\n" << config;
}

TEST_F(RulesTest, TypesOfTags) {
  const char* const rows[][3] = {
      {"type \"string\"", "t \"x\"", "good"},
      {"type \"string\" compulsory \"1\"", "", "bad\nwarning 114 t\nerror 103 t thing"},
      {"type \"string\" compulsory \"1\" default \"d\"", "", "good\nwarning 114 t"},
      {"type \"doublestring\" compulsory \"1\"", "", "good\nwarning 114 t\nwarning 96 t thing"},
      {"type \"combobox\" source \"colours.txt\"", "t \"red\"", "good"},
      {"type \"combobox\" source \"colours.txt\"", "t \"blue\"", "good\nwarning 116 blue t"},
      {"type \"intcombobox\" source \"colours.txt\"", "t 3", "good\nwarning 116 3 t"},
      {"type \"listbox\" source \"colours.txt\"", "t \"x;red\"", "good"},
      {"type \"filepath\" datatype \"meshes\"", "t \"a/b.im\"", "good"},
      {"type \"filepath\" datatype \"meshes\"", "t \"a.tga\"",
       "good"},  // its record goes with the passing stage
      {"type \"filepath\" compulsory \"1\"", "", "bad\nwarning 114 t\nerror 96 t thing"},
      {"type \"kuid\"", "t <kuid:1:2>", "good"},
      {"type \"stringkuid\"", "t <kuid:1:2>", "good"},
      {"type \"kuidbrowser\" category \"TX\"", "t <kuid:1:2>", "good"},
      {"type \"bool\"", "t 1", "good"},
      {"type \"vector3\"", "t 1,2,3", "good"},
      {"type \"unheard-of\"", "t 1", "bad\nerror 107 t thing"},
      {"type \"int\"", "other 1", "bad\nerror 107 other thing"},
      {"type \"int\"", "category-era-1 \"1950s\"", "good\nwarning 117 category-era-1 thing"},
      {"type \"int\"", "morvex-build 2.4\n! \"note\"", "good"},
      {"type \"int\"", "morvex-build 2.5\n! \"note\"", "bad\nerror 107 ! thing"},
  };
  WriteMeshes({{"a/b.im", {}}});
  for (const auto& [type, config, verdict] : rows) {
    EXPECT_EQ(JudgeTag("t { kind \"value\" " + std::string(type) + " }", config), verdict) << type << "\n"
                                                                                           << config;
  }
}

TEST_F(RulesTest, FilesOfTheWrongTypeAreToldOnlyBesideAnotherError) {
  const std::string entry =
      "t { kind \"value\" type \"filepath\" datatype \"%\" }\nmust { kind \"value\" type \"string\" "
      "compulsory \"1\" }";
  const std::string lead = "bad\nwarning 114 must";
  const char* const rows[][3] = {
      {"meshes", "a.tga", "\nerror 95 t thing"},
      {"image", "a.png", "\nerror 94 t thing"},
      {"image", "a.texture", ""},
      {"image", "a.texture.txt", ""},
      {"animation", "a.im", "\nerror 93 t thing"},
      {"animation", "good.kin", ""},
  };
  WriteMeshes({{"a.im", {}}});
  Write("local/asset/good.kin", mesh_builder::Kin({}));
  Write("local/asset/bad.kin", "JIRF");
  for (const auto& [datatype, value, record] : rows) {
    std::string own = entry;
    own.replace(own.find('%'), 1, datatype);
    const std::string verdict = JudgeTag(own, "t \"" + std::string(value) + "\"");
    EXPECT_EQ(verdict, lead + record + "\nerror 103 must thing") << value;
  }
  EXPECT_EQ(JudgeTag("t { kind \"value\" type \"filepath\" datatype \"animation\" }", "t \"bad.kin\""),
            "bad\nerror 88 bad.kin");
}

// A mesh table with an element whose tags come first, a second element, and lights.
class AttachmentTest : public RulesTest {
 protected:
  std::string JudgeParts(const std::string& elementTags, const std::string& effectTags = "",
                         const std::string& more = "") {
    return JudgeTag(
        "mesh-table { kind \"element\" element-type \"table\" }\n"
        "alias { kind \"value\" type \"kuid\" }",
        "mesh-table\n{\na\n{\n" + elementTags + "\neffects\n{\n0\n{\nkind \"effect-corona\"\n" + effectTags +
            "\n}\n}\nlights\n{\n3\n{\n}\n}\n}\nb\n{\nmesh \"b.im\"\n}\n}\n" + more,
        R"(
table { array-element { one { anyname "1" container-type0 "mesh-element" } } }
mesh-element { subpossibilities {
  mesh { kind "value" type "filepath" datatype "meshes" }
  att { kind "value" type "combobox" source "attachment" }
  att-parent { kind "value" type "combobox" source "mesh-table" }
  effects { kind "element" element-type "effects" }
  lights { kind "element" element-type "effects" }
  a { kind "value" type "int" validation { notownparent { } } }
} }
effects { array-element { one { numarray "1" container-type0 "effect-corona" container-type1 "effect-other" } } }
effect-corona { subpossibilities {
  kind { kind "value" type "string" }
  att { kind "value" type "combobox" source "attachment" }
  own { kind "value" type "string" validation { mustbeownparent { } } }
  lamps { kind "value" type "string" validation { mustbeinlightcontainer { } } }
} }
)");
  }
};

TEST_F(AttachmentTest, AreLookedUpInTheMeshes) {
  WriteMeshes({{"a.im", {"a.front"}}, {"b.im", {"b.top"}}});
  const std::string mesh = "mesh \"a.im\"\n";
  EXPECT_EQ(JudgeParts(mesh + "att \"b.top\"\natt-parent \"b\""), "good");
  EXPECT_EQ(JudgeParts(mesh + "att \"b.no\"\natt-parent \"b\""), "bad\nerror 104 att a b.im");
  EXPECT_EQ(JudgeParts(mesh + "att \"b.no\""), "bad\nerror 118 a");
  EXPECT_EQ(JudgeParts(mesh + "att-parent \"c\""), "bad\nerror 104 att-parent a ...");
  EXPECT_EQ(JudgeParts(mesh, "att \"a.front\"\nown \"a.front\""), "good");
  EXPECT_EQ(JudgeParts(mesh, "att \"a.no\""), "bad\nerror 104 att 0 a.im");
  EXPECT_EQ(JudgeParts(mesh, "own \"b.top\""), "bad\nerror 161");
  EXPECT_EQ(JudgeParts("att-parent \"c\"", "own \"b.top\""), "bad\nerror 104 att-parent a ...")
      << "a part without a mesh fails in silence";
}

TEST_F(AttachmentTest, AreNotRefusedWhereMeshesAreNotKnown) {
  const std::string tags = "mesh \"a.im\"\natt-parent \"c\"";
  WriteMeshes({{"a.im", {}}});
  EXPECT_EQ(JudgeParts(tags), "bad\nerror 131 b.im");
  WriteMeshes({{"b.im", {}}});
  EXPECT_EQ(JudgeParts(tags), "bad\nerror 104 att-parent a ...");
  EXPECT_EQ(JudgeParts("mesh \"a.pm\"\natt-parent \"c\""), "good\nwarning 122");
  EXPECT_EQ(JudgeParts(tags, "", "alias <kuid:1:2>"), "good\nwarning 119");
  EXPECT_EQ(JudgeParts(tags), "bad\nerror 104 att-parent a ...") << "an alias speaks for its own asset";
}

TEST_F(AttachmentTest, LampsAndPartsNameOthers) {
  WriteMeshes({{"b.im", {}}});
  EXPECT_EQ(JudgeParts("", "lamps \"3\""), "good");
  EXPECT_EQ(JudgeParts("", "lamps \"3,03\""), "good");
  EXPECT_EQ(JudgeParts("", "lamps \"3 4 5\""), "bad\nerror 162 4");
  EXPECT_EQ(JudgeParts("a 1"), "bad\nerror 160");
}

}  // namespace
}  // namespace QELLib
