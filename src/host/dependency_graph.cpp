#include "host/dependency_graph.h"

#include <algorithm>

#include "database/catalogue/asset_cache.h"
#include "database/catalogue/asset_lock.h"
#include "host/json_writer.h"

namespace morvex::host {

DependencyGraph::DependencyGraph(const KUID& root, DependencyDirection direction, size_t depth) {
  const ZEBAssetLock lock(false);
  if (!lock) return;
  NodeOf(root);
  size_t level = 0;
  for (size_t at = 0, levelEnd = 1; at < nodes_.size(); ++at) {
    if (at == levelEnd) {
      levelEnd = nodes_.size();
      ++level;
    }
    if (depth != 0 && level == depth) break;
    AddLinks(at, direction);
  }
}

size_t DependencyGraph::NodeOf(const KUID& kuid) {
  const auto [place, isNew] = byKuid_.try_emplace(kuid, nodes_.size());
  if (!isNew) return place->second;
  Node node{.kuid = kuid, .name = {}, .isInstalled = false, .links = {}};
  if (const ZEBAssetInfo* const record = ZEBAssetCache::Instance().Find(kuid)) {
    node.name = record->DisplayName();
    node.isInstalled = record->IsInstalled();
  }
  nodes_.push_back(std::move(node));
  return nodes_.size() - 1;
}

void DependencyGraph::AddLinks(size_t node, DependencyDirection direction) {
  ZEBAssetCache& cache = ZEBAssetCache::Instance();
  const KUID kuid = nodes_[node].kuid;
  std::vector<Link> links;
  if (direction == DependencyDirection::kNeeds) {
    for (const KUID& named : cache.dependencies.DependenciesOf(kuid)) {
      const KUID meant = ZEBFindReplacement(named);
      links.push_back({NodeOf(meant), named == meant ? KUID() : named});
    }
  } else {
    KUIDList names;  // under which others may depend on it
    names.Add(kuid);
    cache.obsoletes.Replacements(kuid, names);
    for (const KUID& named : names) {
      for (const KUID& dependant : cache.dependencies.DependantsOf(named))
        links.push_back({NodeOf(dependant), named == kuid ? KUID() : named});
    }
  }
  nodes_[node].links = std::move(links);
}

size_t DependencyGraph::MissingCount() const {
  return static_cast<size_t>(
      std::count_if(nodes_.begin(), nodes_.end(), [](const Node& node) { return !node.isInstalled; }));
}

void DependencyGraph::WriteJson(JsonWriter& json) const {
  json.BeginObject().Key("assets").BeginArray();
  for (const Node& node : nodes_) {
    json.BeginObject();
    json.Key("kuid").Text(node.kuid.TagText());
    json.Key("name").Text(node.name);
    json.Key("installed").Bool(node.isInstalled);
    json.Key("links").BeginArray();
    for (const Link& link : node.links) {
      json.BeginObject();
      json.Key("kuid").Text(nodes_[link.node].kuid.TagText());
      json.Key("obsolete").TextOrNull(link.obsolete.IsNull() ? "" : link.obsolete.TagText());
      json.EndObject();
    }
    json.EndArray().EndObject();
  }
  json.EndArray().EndObject();
}

}  // namespace morvex::host
