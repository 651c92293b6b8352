// completion: a script by which a shell completes the commands and options of this program. It is made from the
// command line itself, so it knows all of it.

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>

#include "host/command.h"
#include "host/command_line.h"
#include "host/host.h"

namespace morvex::host {

namespace {

constexpr const char* kStart = R"(# Completion of MorvexHost for bash: commands, then options, else files.
_MorvexHost() {
  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}
  local path=MorvexHost words= word
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case "$path $word" in
)";
constexpr const char* kMiddle = R"() path="$path $word" ;;
    esac
  done
  if [[ $prev == --color ]]; then
    words="auto always never"
  elif [[ $cur == -* ]]; then
    case $path in
)";
constexpr const char* kCommands = R"(    esac
  else
    case $path in
)";
constexpr const char* kEnd = R"(    esac
  fi
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur")
}
complete -o bashdefault -o default -F _MorvexHost MorvexHost
)";

void CollectPaths(const CLI::App& app, const std::string& path, std::vector<std::string>& paths) {
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    paths.push_back(path + ' ' + command->get_name());
    CollectPaths(*command, paths.back(), paths);
  }
}

std::string OptionsOf(const CLI::App& app) {
  std::string words;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames())
      words += (words.empty() ? "--" : " --") + name;
  }
  return words;
}

std::string CommandsOf(const CLI::App& app) {
  std::string words;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
    words += (words.empty() ? "" : " ") + command->get_name();
  return words;
}

// A branch for each command that has any words.
void WriteBranches(std::ostream& out, const CLI::App& app, const std::string& path,
                   std::string (*wordsOf)(const CLI::App&)) {
  const std::string words = wordsOf(app);
  if (!words.empty()) out << "      '" << path << "') words='" << words << "' ;;\n";
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; }))
    WriteBranches(out, *command, path + ' ' + command->get_name(), wordsOf);
}

void WriteBashScript(std::ostream& out, const CLI::App& app) {
  std::vector<std::string> paths;
  CollectPaths(app, kProgramName, paths);
  out << kStart << "      ";
  for (size_t i = 0; i < paths.size(); ++i)
    out << (i == 0 ? "'" : "|'") << paths[i] << '\'';
  out << kMiddle;
  WriteBranches(out, app, kProgramName, &OptionsOf);
  out << kCommands;
  WriteBranches(out, app, kProgramName, &CommandsOf);
  out << kEnd;
}

}  // namespace

void DeclareCompletion(CLI::App& command, Run& run) {
  const auto shell = std::make_shared<std::string>();
  command.add_option("shell", *shell, "The shell: bash")
      ->required()
      ->check(CLI::IsMember({"bash"}))
      ->type_name("SHELL");
  command.footer("Example:\n  source <(MorvexHost completion bash)");
  command.callback([shell, &command, &run] {
    run = [shell, &command](Host& host) {
      WriteBashScript(host.console().Out(), *command.get_parent());
      return ExitCode::kSuccess;
    };
  });
}

}  // namespace morvex::host
