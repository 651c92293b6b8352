// list: the assets that pass the filters of a query.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "database/catalogue/asset_query.h"
#include "engine/format.h"
#include "host/arguments.h"
#include "host/asset_entry.h"
#include "host/command.h"
#include "host/host.h"
#include "host/json_writer.h"
#include "host/visible_text.h"

namespace morvex::host {

namespace {

struct Options {
  ZEBAssetQuery query;
  std::vector<KUID> only;
  bool kuidsOnly = false;
};

// The filters that ask for yes or no, each under its name and, negated, behind "no-".
struct Filter {
  const char* name;
  QueryFilter ZEBAssetQuery::*filter;
  const char* help;
};

constexpr Filter kFilters[] = {
    {"installed", &ZEBAssetQuery::installed, "Installed in any way"},
    {"committed", &ZEBAssetQuery::committed, "With a committed copy"},
    {"latest", &ZEBAssetQuery::latest, "Latest version of itself"},
    {"obsoleted", &ZEBAssetQuery::obsoleted, "Made obsolete by another one"},
    {"local-copy", &ZEBAssetQuery::localCopy, "With a copy under local/"},
    {"named", &ZEBAssetQuery::named, "With a name"},
    {"open", &ZEBAssetQuery::open, "Open for edit"},
    {"archived", &ZEBAssetQuery::archived, "Held in an archive"},
    {"enabled", &ZEBAssetQuery::enabled, "Taking part in listings"},
    {"missing-deps", &ZEBAssetQuery::missingDeps, "Needing something that isn't installed"},
    {"errors", &ZEBAssetQuery::errors, "Found faulty by its last commit"},
    {"reskin", &ZEBAssetQuery::reskin, "A reskin"},
    {"built-in", &ZEBAssetQuery::builtIn, "Built in"},
    {"listing", &ZEBAssetQuery::listing, "May be listed"},
    {"pinned", &ZEBAssetQuery::pinned, "Pinned"},
};

void DeclareFilters(CLI::App& command, ZEBAssetQuery& query) {
  for (const Filter& filter : kFilters) {
    const std::string name = filter.name;
    QueryFilter& value = query.*filter.filter;
    command
        .add_flag_function(
            "--" + name + ",!--no-" + name,
            [&value](int64_t count) {
              value = count > 0 ? QueryFilter::kMustBeTrue : QueryFilter::kMustBeFalse;
            },
            filter.help)
        ->group("Filters for yes or no");
  }
}

void DeclareTexts(CLI::App& command, ZEBAssetQuery& query) {
  constexpr const char* kGroup = "Filters by text";
  CLI::Option* const name =
      command.add_option("--name", query.nameFilter, "The name holds this text, in any case")->group(kGroup);
  command
      .add_option_function<std::string>(
          "--exact-name",
          [&query](const std::string& text) {
            query.nameFilter = text;
            query.nameMode = ZEBAssetQuery::kExactName;
          },
          "The name is this text, in any case")
      ->group(kGroup)
      ->excludes(name);
  command.add_option("--category", query.categoryFilter, "Category expression, as \"TR;LOC|SCEN;-BD\"")
      ->group(kGroup);
  command.add_option("--era", query.eraFilter, "Expression of eras, as \"1950|1960\"")->group(kGroup);
  command.add_option("--region", query.regionFilter, "Region: a code, an expression of codes, or a name")
      ->group(kGroup);
  command.add_option("--keyword", query.keywordFilter, "Expression of keywords, in lower case")
      ->group(kGroup);
}

void DeclareRanges(CLI::App& command, Options& options) {
  constexpr const char* kGroup = "Filters by number and time";
  ZEBAssetQuery& query = options.query;
  command.add_option("--author", query.authorFilter, "Author's number")->type_name("NUMBER")->group(kGroup);
  AddTime(command, "--installed-since", query.installedRange.low, DayEnd::kFirstSecond,
          "First appeared on this day or later")
      ->group(kGroup);
  AddTime(command, "--installed-until", query.installedRange.high, DayEnd::kLastSecond,
          "First appeared on this day or earlier")
      ->group(kGroup);
  AddTime(command, "--modified-since", query.modifiedRange.low, DayEnd::kFirstSecond,
          "Last changed on this day or later")
      ->group(kGroup);
  AddTime(command, "--modified-until", query.modifiedRange.high, DayEnd::kLastSecond,
          "Last changed on this day or earlier")
      ->group(kGroup);
  command
      .add_option_function<std::vector<int>>(
          "--rating",
          [&query](const std::vector<int>& range) {
            query.ratingLow = range.front();
            query.ratingHigh = range.back();
          },
          "Rating from -1 (none) to 5: one number, or the lowest and the highest")
      ->expected(1, 2)
      ->check(CLI::Range(-1, 5))
      ->group(kGroup);
  AddKuid(command, "--map", query.mapFilter, "Sessions of this map")->group(kGroup);
  AddKuids(command, "--only", options.only, "Only among these assets")->group(kGroup);
}

size_t LongestKuid(const KUIDList& list) {
  size_t longest = 0;
  for (const KUID& kuid : list)
    longest = std::max(longest, kuid.TagText().size());
  return longest;
}

void PrintTable(const Host& host, const KUIDList& list) {
  const Console& console = host.console();
  const size_t width = LongestKuid(list);
  for (const KUID& kuid : list) {
    const std::optional<AssetEntry> asset = FindAsset(kuid);
    if (!asset) continue;
    std::string text = kuid.TagText();
    text.append(width - text.size(), ' ');
    console.Out() << console.Paint(Style::kBlue, text) << "  " << asset->status.Letters() << "  "
                  << Nox::FormatText("%-16s", VisibleText(asset->status.categoryName)) << "  "
                  << ShownName(console, asset->status.name) << '\n';
  }
  console.Note(Nox::FormatText(list.Count() == 1 ? "%u asset" : "%u assets", list.Count()));
}

void PrintJson(const Host& host, const KUIDList& list) {
  JsonWriter json(host.console().Out());
  json.BeginObject().Key("assets").BeginArray();
  for (const KUID& kuid : list) {
    if (const std::optional<AssetEntry> asset = FindAsset(kuid)) WriteAsset(json, *asset);
  }
  json.EndArray().EndObject();
}

ExitCode List(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  KUIDList subset;
  for (const KUID& kuid : options.only)
    subset.AddUnique(kuid);
  ZEBAssetQuery query = options.query;
  if (!subset.IsEmpty()) query.subset = &subset;
  KUIDList found;
  ZEBSearchAssets(query, found);

  if (host.WantsJson()) {
    PrintJson(host, found);
  } else if (options.kuidsOnly) {
    for (const KUID& kuid : found)
      host.console().Out() << kuid.TagText() << '\n';
  } else {
    PrintTable(host, found);
  }
  return ExitCode::kSuccess;
}

}  // namespace

void DeclareList(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  command.add_flag("-k,--kuids", options->kuidsOnly, "Print the KUIDs alone, one on each line");
  DeclareFilters(command, options->query);
  DeclareTexts(command, options->query);
  DeclareRanges(command, *options);
  command.footer(
      "The seven letters, a capital for yes: open for Edit, Installed, Archived, on the Download station,\n"
      "Locally modified, Missing dependencies, Errors.\n"
      "Examples:\n"
      "  MorvexHost list --installed --category \"TR;LOC\" --region DE\n"
      "  MorvexHost list --errors --kuids | xargs MorvexHost validate");
  command.callback([options, &run] { run = [options](Host& host) { return List(host, *options); }; });
}

}  // namespace morvex::host
