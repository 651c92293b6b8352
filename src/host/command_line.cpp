#include "host/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "host/host.h"
#include "host/visible_text.h"
#include "tagdata/morvex_ex.h"

namespace morvex::host {

namespace {

constexpr const char* kSummary =
    "Manages the content of a railway simulator: what is installed, what is wrong with it.";
constexpr const char* kFooter =
    "'MorvexHost <command> --help' tells more about a command, 'man MorvexHost' about the program.\n"
    "Exit codes: 0 done, 1 done and something is faulty, 2 wrong command line, 3 not found, 4 failed,\n"
    "5 no installation, 130 interrupted.";

// Help without what only the parser wants to know.
class HelpText final : public CLI::Formatter {
 public:
  HelpText() {
    label("SUBCOMMAND", "COMMAND");
    label("Positionals", "Arguments");
    column_width(28);
  }

  std::string make_option_name(const CLI::Option* option, bool isPositional) const override {
    const std::vector<std::string>& names = option->get_lnames();
    const bool isYesOrNo = names.size() == 2 && names[1] == "no-" + names[0];
    return isYesOrNo ? "--[no-]" + names[0] : CLI::Formatter::make_option_name(option, isPositional);
  }

  std::string make_option_opts(const CLI::Option* option) const override {
    if (option->get_type_size() == 0) return {};
    std::string type = option->get_type_name();
    type.resize(std::min(type.size(), type.find(':')));  // what the check adds behind it
    std::string text = type.empty() ? "" : " " + type;
    if (option->get_expected_max() == CLI::detail::expected_max_vector_size) text += " ...";
    return text;
  }
};

const std::map<std::string, Console::Colours> kColours = {{"auto", Console::Colours::kAuto},
                                                          {"always", Console::Colours::kAlways},
                                                          {"never", Console::Colours::kNever}};

void AddCommonOptions(CLI::App& app, CommonOptions& common) {
  constexpr const char* kGroup = "Common options";
  app.set_help_flag("-h,--help", "Print this help and end")->group(kGroup);
  app.add_option("--root", common.root,
                 "Folder of the installation; without it the one above the program's own")
      ->type_name("FOLDER")
      ->group(kGroup);
  app.add_flag("--json", common.json, "Results as one JSON object for machines")->group(kGroup);
  app.add_option("--color", common.colours, "Colours: auto, always or never; NO_COLOR is respected")
      ->transform(CLI::Transformer(kColours))
      ->type_name("WHEN")
      ->group(kGroup);
}

// The common options may stand behind any command, and its help shows them.
void AddToLeaves(CLI::App& app, CommonOptions& common) {
  AddCommonOptions(app, common);
  for (CLI::App* command : app.get_subcommands({}))
    AddToLeaves(*command, common);
}

std::string FullName(const CLI::App& app) {
  const CLI::App* const parent = app.get_parent();
  return parent == nullptr ? app.get_name() : FullName(*parent) + ' ' + app.get_name();
}

// The innermost command that was named.
const CLI::App& ChosenCommand(const CLI::App& app) {
  const std::vector<CLI::App*> chosen = app.get_subcommands();
  return chosen.empty() ? app : ChosenCommand(*chosen.front());
}

std::string CommandNames(const CLI::App& app) {
  std::string names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
    names += (names.empty() ? "" : ", ") + command->get_name();
  return names;
}

ExitCode RefuseCommandLine(const CLI::App& app, const std::string& message) {
  const CLI::App& chosen = ChosenCommand(app);
  std::cerr << "error: " << VisibleText(message) << '\n';
  const std::string commands = CommandNames(chosen);
  if (!commands.empty()) std::cerr << "The commands of " << FullName(chosen) << " are: " << commands << ".\n";
  std::cerr << "Try '" << FullName(chosen) << " --help'.\n";
  return ExitCode::kUsage;
}

ExitCode RunInInstallation(const CommonOptions& common, const Run& run) {
  Host host(common);
  ExitCode code = ExitCode::kFailed;
  try {
    code = run(host);
  } catch (const MorvexEx& failure) {
    host.console().Error(failure.what());
  }
  const bool isClosed = host.Close();
  const bool isWritten = host.console().Flush();
  return isClosed && isWritten ? code : ExitCode::kFailed;
}

}  // namespace

std::unique_ptr<CLI::App> MakeCommandLine(CommonOptions& common, Run& run) {
  auto app = std::make_unique<CLI::App>(kSummary, kProgramName);
  app->formatter(std::make_shared<HelpText>());
  app->set_version_flag("--version", std::string(kProgramName) + " " + MORVEX_VERSION,
                        "Print the version and end");
  for (const Command& command : Commands()) {
    CLI::App* const added = app->add_subcommand(command.name, command.summary);
    added->group("Commands");
    command.declare(*added, run);
  }
  app->footer(kFooter);  // not handed on to the commands, which have their own
  AddToLeaves(*app, common);
  return app;
}

ExitCode RunCommandLine(int argc, const char* const* argv) {
  CommonOptions common;
  Run run;
  const std::unique_ptr<CLI::App> app = MakeCommandLine(common, run);
  try {
    app->parse(argc, argv);
  } catch (const CLI::CallForVersion& version) {
    std::cout << version.what() << '\n';
    return ExitCode::kSuccess;
  } catch (const CLI::CallForHelp&) {
    std::cout << app->help();
    return ExitCode::kSuccess;
  } catch (const CLI::ParseError& wrong) {
    return RefuseCommandLine(*app, wrong.what());
  }
  if (run) return RunInInstallation(common, run);
  std::cerr << app->help();
  return ExitCode::kUsage;
}

}  // namespace morvex::host
