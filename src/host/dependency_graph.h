#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <unordered_map>
#include <vector>

#include "tagdata/kuid.h"

namespace morvex::host {

class Console;
class JsonWriter;

enum class DependencyDirection { kNeeds, kNeededBy };

// Which assets an asset needs, or is needed by, directly and further on: each asset once, in the order in which a
// walk over the levels meets them, the asset itself first. A copy of what the database knew when it was made.
class DependencyGraph {
 public:
  struct Link {
    size_t node;
    KUID obsolete;  // what the configuration names, if something else stands in for that; else null
  };
  struct Node {
    KUID kuid;
    std::string name;
    bool isInstalled = false;
    std::vector<Link> links;
  };

  // `depth` levels of links, 0: all. Takes the database lock.
  DependencyGraph(const KUID& root, DependencyDirection direction, size_t depth);

  const std::vector<Node>& Nodes() const { return nodes_; }
  // The links that lead to nothing installed.
  size_t MissingCount() const;

  // The graph as a tree. What stands in it already isn't gone into again, so circles end.
  void PrintTree(const Console& console) const;
  // The same for Graphviz.
  void PrintDot(std::ostream& out) const;
  void WriteJson(JsonWriter& json) const;

 private:
  size_t NodeOf(const KUID& kuid);
  void AddLinks(size_t node, DependencyDirection direction);

  std::vector<Node> nodes_;
  std::unordered_map<KUID, size_t> byKuid_;
};

}  // namespace morvex::host
