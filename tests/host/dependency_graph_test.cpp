#include "host/dependency_graph.h"

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "host/console.h"
#include "tests/catalogue/installation.h"

namespace morvex::host {
namespace {

std::string Shape(const DependencyGraph& graph) {
  std::string text;
  for (const DependencyGraph::Node& node : graph.Nodes()) {
    text += node.name + (node.isInstalled ? "" : "!") + ":";
    for (const DependencyGraph::Link& link : node.links)
      text += graph.Nodes()[link.node].name + (link.obsolete.IsNull() ? "" : "*") + ",";
    text += " ";
  }
  return text;
}

// a needs b and d; b needs c; c needs a, which closes a circle, and the old version of e; d isn't there.
TEST(DependencyGraph, MarksWhatIsMissingAndEndsCircles) {
  test::Installation place;
  place.AddAsset("local/a", "<kuid:1:1>", "a", "kuid-table\n{\n  0 <kuid:1:2>\n  1 <kuid:1:4>\n}\n");
  place.AddAsset("local/b", "<kuid:1:2>", "b", "kuid-table\n{\n  0 <kuid:1:3>\n}\n");
  place.AddAsset("local/c", "<kuid:1:3>", "c", "kuid-table\n{\n  0 <kuid:1:1>\n  1 <kuid:1:5>\n}\n");
  place.AddAsset("local/e", "<kuid2:1:5:1>", "e");
  place.Start();

  const DependencyGraph graph(test::Parse("<kuid:1:1>"), DependencyDirection::kNeeds, 0);
  EXPECT_EQ(Shape(graph), "a:b,, b:c, !: c:a,e*, e: ");
  EXPECT_EQ(graph.MissingCount(), 1u);
  EXPECT_EQ(DependencyGraph(test::Parse("<kuid:1:1>"), DependencyDirection::kNeeds, 1).Nodes().size(), 3u);
  EXPECT_EQ(Shape(DependencyGraph(test::Parse("<kuid2:1:5:1>"), DependencyDirection::kNeededBy, 0)),
            "e:c*, c:b, b:a, a:c, ");

  std::ostringstream dot;
  graph.PrintDot(dot);
  EXPECT_NE(dot.str().find("n2 [label=\"\\n<kuid:1:4>\", style=dashed, color=red"), std::string::npos)
      << dot.str();
  EXPECT_NE(dot.str().find("n3 -> n0;"), std::string::npos);

  testing::internal::CaptureStdout();
  graph.PrintTree(Console(Console::Colours::kNever));
  std::cout.flush();
  const std::string tree = testing::internal::GetCapturedStdout();
  EXPECT_NE(tree.find("<kuid:1:1>  a  see above\n"), std::string::npos) << tree;
  EXPECT_NE(tree.find("<kuid:1:4>  missing\n"), std::string::npos);
  EXPECT_NE(tree.find("for the obsolete <kuid:1:5>"), std::string::npos);
}

}  // namespace
}  // namespace morvex::host
