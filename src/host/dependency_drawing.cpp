// A dependency graph drawn: as a tree for a terminal, and as text for Graphviz.

#include "engine/format.h"
#include "host/console.h"
#include "host/dependency_graph.h"
#include "host/visible_text.h"

namespace morvex::host {

namespace {

using Node = DependencyGraph::Node;
using Link = DependencyGraph::Link;

// The pieces that lead the eye.
struct Branches {
  const char* middle;
  const char* last;
  const char* beside;  // beside what hangs below a middle branch
  const char* below;   // below the last branch
};
constexpr Branches kLines = {"├── ", "└── ", "│   ", "    "};
constexpr Branches kPlainLines = {"|-- ", "`-- ", "|   ", "    "};

// A node whose links are being printed.
struct Level {
  const Node* node;
  size_t next;
  std::string indent;
};

std::string Describe(const Console& console, const Node& node) {
  std::string text = console.Paint(Style::kBlue, node.kuid.TagText());
  if (!node.name.empty()) text += "  " + VisibleText(node.name);
  if (!node.isInstalled) text += "  " + console.Paint(Style::kRed, "missing");
  return text;
}

std::string DescribeLink(const Console& console, const Node& target, const KUID& obsolete, bool isRepeated) {
  std::string text = Describe(console, target);
  if (!obsolete.IsNull())
    text += "  " + console.Paint(Style::kYellow, "for the obsolete " + obsolete.TagText());
  if (isRepeated && !target.links.empty()) text += "  " + console.Paint(Style::kDim, "see above");
  return text;
}

std::string DotText(std::string_view text) {
  std::string quoted;
  for (const char c : VisibleText(text)) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted;
}

}  // namespace

void DependencyGraph::PrintTree(const Console& console) const {
  if (nodes_.empty()) return;
  const Branches& branches = console.SpeaksUtf8() ? kLines : kPlainLines;
  std::vector<bool> isPrinted(nodes_.size());
  console.Out() << Describe(console, nodes_[0]) << '\n';
  isPrinted[0] = true;
  std::vector<Level> open = {{&nodes_[0], 0, ""}};
  while (!open.empty()) {
    Level& level = open.back();
    if (level.next == level.node->links.size()) {
      open.pop_back();
      continue;
    }
    const Link& link = level.node->links[level.next++];
    const bool isLast = level.next == level.node->links.size();
    const bool isRepeated = isPrinted[link.node];
    console.Out() << level.indent << (isLast ? branches.last : branches.middle)
                  << DescribeLink(console, nodes_[link.node], link.obsolete, isRepeated) << '\n';
    isPrinted[link.node] = true;
    std::string indent = level.indent + (isLast ? branches.below : branches.beside);
    if (!isRepeated) open.push_back({&nodes_[link.node], 0, std::move(indent)});
  }
}

void DependencyGraph::PrintDot(std::ostream& out) const {
  out << "digraph dependencies {\n  rankdir=LR;\n  node [shape=box, fontname=\"sans-serif\"];\n";
  for (size_t i = 0; i < nodes_.size(); ++i) {
    const Node& node = nodes_[i];
    const char* const look = node.isInstalled ? "" : ", style=dashed, color=red, fontcolor=red";
    out << Nox::FormatText("  n%u [label=\"%s\\n%s\"%s];\n", i, DotText(node.name),
                           DotText(node.kuid.TagText()), look);
  }
  for (size_t i = 0; i < nodes_.size(); ++i) {
    for (const Link& link : nodes_[i].links) {
      const std::string look =
          link.obsolete.IsNull() ? ""
                                 : " [style=dashed, label=\"for " + DotText(link.obsolete.TagText()) + "\"]";
      out << Nox::FormatText("  n%u -> n%u%s;\n", i, link.node, look);
    }
  }
  out << "}\n";
}

}  // namespace morvex::host
