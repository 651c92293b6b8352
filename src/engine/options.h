#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Nox {

// The engine's options, from a text such as "-NullRender -LogFile=/dev/null". Keys don't tell cases apart.
class Options {
 public:
  explicit Options(std::string_view text = {});

  // Names the program, whose name begins the lines of its log, and the option that sends them to standard
  // output.
  void Init(std::string_view program, std::string_view logKey);

  bool Has(std::string_view key) const { return Value(key).has_value(); }
  // What stands behind the '='; empty for an option without one, none if the option isn't there.
  std::optional<std::string_view> Value(std::string_view key) const;

  const std::string& Program() const { return program_; }
  bool LogsToStandardOutput() const { return !logKey_.empty() && Has(logKey_); }

 private:
  struct Option {
    std::string key;
    std::string value;
  };
  std::vector<Option> options_;
  std::string program_;
  std::string logKey_;
};

// The engine of one run. It opens no window and holds nothing but its options.
class OS {
 public:
  OS(std::string_view name, std::string_view optionString) : name_(name), options_(optionString) {}

  // True once the engine can be used.
  [[nodiscard]] bool Init() { return !name_.empty(); }
  Options& GetOptions() { return options_; }

 private:
  std::string name_;
  Options options_;
};

}  // namespace Nox
