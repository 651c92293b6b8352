// deps: what an asset needs, or who needs it.

#include <CLI/CLI.hpp>
#include <memory>

#include "engine/format.h"
#include "host/arguments.h"
#include "host/asset_entry.h"
#include "host/command.h"
#include "host/dependency_graph.h"
#include "host/host.h"
#include "host/json_writer.h"

namespace morvex::host {

namespace {

struct Options {
  KUID kuid;
  bool asDot = false;
  bool isReversed = false;
  size_t depth = 0;
};

ExitCode Deps(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  if (!FindAsset(options.kuid) && !options.isReversed) return host.RefuseUnknown(options.kuid);
  const DependencyDirection direction =
      options.isReversed ? DependencyDirection::kNeededBy : DependencyDirection::kNeeds;
  const DependencyGraph graph(options.kuid, direction, options.depth);
  const Console& console = host.console();
  if (host.WantsJson()) {
    JsonWriter json(console.Out());
    graph.WriteJson(json);
  } else if (options.asDot) {
    graph.PrintDot(console.Out());
  } else {
    graph.PrintTree(console);
    console.Note(
        Nox::FormatText("%u further assets, %u missing", graph.Nodes().size() - 1, graph.MissingCount()));
  }
  return ExitCode::kSuccess;
}

}  // namespace

void DeclareDeps(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  AddKuid(command, "kuid", options->kuid, "Asset to begin with")->required();
  command.add_flag("--dot", options->asDot, "Text for Graphviz in place of the tree");
  command.add_flag("-r,--reverse", options->isReversed, "Who needs the asset, in place of what it needs");
  command.add_option("--depth", options->depth, "How many levels; all without it")->type_name("NUMBER");
  command.footer(
      "Examples:\n"
      "  MorvexHost deps 523841:1007\n"
      "  MorvexHost deps 523841:1007 --dot | dot -Tsvg > deps.svg");
  command.callback([options, &run] { run = [options](Host& host) { return Deps(host, *options); }; });
}

}  // namespace morvex::host
