// validate: what a commit finds out about an asset and keeps to itself.

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "database/catalogue/asset_query.h"
#include "engine/file.h"
#include "engine/format.h"
#include "host/arguments.h"
#include "host/asset_check.h"
#include "host/asset_entry.h"
#include "host/command.h"
#include "host/host.h"
#include "host/interrupt.h"
#include "host/json_writer.h"
#include "host/paths.h"
#include "host/visible_text.h"

namespace morvex::host {

namespace {

using QELLib::Finding;
using QELLib::RecordSeverity;

struct Options {
  std::vector<std::string> subjects;
  bool allInstalled = false;
  bool withDropped = false;
};

// What is to be checked: an installed asset, or a folder of the disk.
struct Subject {
  KUID kuid;  // null: the folder
  std::string folder;
};

// A folder of that name goes before a KUID.
bool Resolve(const Host& host, const std::string& text, std::vector<Subject>& subjects) {
  const std::string path = AbsolutePath(text);
  if (Nox::File::IsFolder(path)) {
    const std::vector<std::string> folders = FindAssetFolders(path);
    for (const std::string& folder : folders)
      subjects.push_back({KUID(), folder});
    if (folders.empty())
      host.console().Error("There is no config.txt in \"" + text + "\" or in a folder below it.");
    return !folders.empty();
  }
  if (const std::optional<KUID> kuid = ParseKuid(text)) {
    subjects.push_back({*kuid, {}});
    return true;
  }
  host.console().Error("\"" + text +
                       "\" is neither a folder nor a KUID. Write a KUID as 100:200 or \"<kuid:100:200>\".");
  return false;
}

// Tells of the checks one by one, as they come.
class Teller {
 public:
  virtual ~Teller() = default;
  virtual void Tell(const AssetCheck& check) = 0;
};

class JsonTeller final : public Teller {
 public:
  JsonTeller(std::ostream& out, bool withDropped) : json_(out), withDropped_(withDropped) {
    json_.BeginObject().Key("assets").BeginArray();
  }
  ~JsonTeller() override { json_.EndArray().EndObject(); }

  void Tell(const AssetCheck& check) override {
    json_.BeginObject();
    json_.Key("kuid").TextOrNull(check.kuid.IsNull() ? "" : check.kuid.TagText());
    json_.Key("path").Text(check.path);
    json_.Key("clean").Bool(check.isClean);
    json_.Key("findings").BeginArray();
    for (const Finding& finding : check.findings) {
      if (!finding.dropped || withDropped_) Write(finding);
    }
    json_.EndArray().EndObject();
  }

 private:
  void Write(const Finding& finding) {
    json_.BeginObject();
    json_.Key("severity").Text(SeverityName(finding.severity));
    json_.Key("text").Text(finding.text);
    json_.Key("tag").TextOrNull(finding.tag);
    json_.Key("container").TextOrNull(finding.container);
    if (finding.dropped) json_.Key("dropped").Bool(true);
    json_.EndObject();
  }

  JsonWriter json_;
  const bool withDropped_;
};

class TextTeller final : public Teller {
 public:
  TextTeller(const Console& console, bool withDropped) : console_(console), withDropped_(withDropped) {}

  void Tell(const AssetCheck& check) override {
    const std::string verdict =
        check.isClean ? console_.Paint(Style::kGreen, "clean") : console_.Paint(Style::kRed, "errors");
    console_.Out() << console_.Paint(Style::kBlue, check.kuid.TagText()) << "  "
                   << ShownName(console_, check.name) << "  " << verdict << '\n';
    for (const Finding& finding : check.findings) {
      if (!finding.dropped || withDropped_) Print(finding);
    }
  }

 private:
  void Print(const Finding& finding) const {
    const bool isError = finding.severity == RecordSeverity::kError;
    const Style style = finding.dropped ? Style::kDim : isError ? Style::kRed : Style::kYellow;
    console_.Out() << "  " << console_.Paint(style, Nox::FormatText("%-11s", SeverityName(finding.severity)))
                   << "  ";
    if (!finding.place.empty())
      console_.Out() << console_.Paint(Style::kBold, VisibleText(finding.place)) << ": ";
    console_.Out() << VisibleText(finding.text);
    if (finding.dropped) console_.Out() << console_.Paint(Style::kDim, " (dropped)");
    console_.Out() << '\n';
  }

  const Console& console_;
  const bool withDropped_;
};

std::optional<AssetCheck> Check(const Host& host, const Subject& subject) {
  if (subject.kuid.IsNull()) return CheckFolder(subject.folder);
  std::optional<AssetCheck> check = CheckInstalled(subject.kuid);
  if (!check) (void)host.RefuseUnknown(subject.kuid);
  return check;
}

std::vector<Subject> InstalledAssets() {
  ZEBAssetQuery query;
  query.installed = QueryFilter::kMustBeTrue;
  KUIDList found;
  ZEBSearchAssets(query, found);
  std::vector<Subject> subjects;
  for (const KUID& kuid : found)
    subjects.push_back({kuid, {}});
  return subjects;
}

ExitCode CheckAll(const Host& host, const std::vector<Subject>& subjects, Teller& teller) {
  ProgressBar progress(host.console(), "Checking", subjects.size());
  bool allFound = true;
  bool allClean = true;
  for (const Subject& subject : subjects) {
    if (IsInterrupted()) return ExitCode::kInterrupted;
    const std::optional<AssetCheck> check = Check(host, subject);
    progress.Advance();
    allFound = allFound && check.has_value();
    if (!check) continue;
    allClean = allClean && check->isClean;
    teller.Tell(*check);
  }
  if (!allFound) return ExitCode::kNotFound;
  return allClean ? ExitCode::kSuccess : ExitCode::kFaulty;
}

ExitCode Validate(Host& host, const Options& options) {
  if (!host.Open()) return ExitCode::kNoInstallation;
  std::vector<Subject> subjects;
  if (options.allInstalled) subjects = InstalledAssets();
  bool allResolved = true;
  for (const std::string& text : options.subjects)
    allResolved = Resolve(host, text, subjects) && allResolved;

  std::unique_ptr<Teller> teller;
  std::ostream& out = host.console().Out();
  if (host.WantsJson()) {
    teller = std::make_unique<JsonTeller>(out, options.withDropped);
  } else {
    teller = std::make_unique<TextTeller>(host.console(), options.withDropped);
  }
  const ExitCode code = CheckAll(host, subjects, *teller);
  return allResolved ? code : ExitCode::kNotFound;
}

}  // namespace

void DeclareValidate(CLI::App& command, Run& run) {
  const auto options = std::make_shared<Options>();
  CLI::Option* const subjects =
      command
          .add_option("asset", options->subjects, "Installed assets by KUID, or folders with assets in them")
          ->type_name("KUID|FOLDER");
  CLI::Option* const installed =
      command.add_flag("--installed", options->allInstalled, "All installed assets");
  command.add_flag("-a,--all", options->withDropped,
                   "Also what isn't counted: the findings of a check that was passed, and information");
  command.callback([=, &run] {
    if (subjects->count() + installed->count() == 0)
      throw CLI::ValidationError("asset", "name an asset by its KUID, a folder, or --installed");
    run = [options](Host& host) { return Validate(host, *options); };
  });
  command.footer(
      "An asset that is open for edit is checked as it is being edited. The exit code is 0 if no asset has\n"
      "an error, 1 if one has, 3 if one couldn't be found.\n"
      "Examples:\n"
      "  MorvexHost validate 523841:1007\n"
      "  MorvexHost validate ~/my-assets --json");
}

}  // namespace morvex::host
