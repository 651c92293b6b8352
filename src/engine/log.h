#pragma once

#include <atomic>
#include <string>
#include <string_view>
#include <utility>

namespace Nox {

class Options;

// One source of lines in the log, by name. Lives until the process ends.
class LogClient {
 public:
  explicit LogClient(std::string name) : name_(std::move(name)) {}

  // How grave the lines are that follow; shown with each of them.
  void SetLevel(int level) { level_ = level; }
  // Writes one line. Does nothing while no log is open.
  void OutputString(std::string_view line);

 private:
  const std::string name_;
  std::atomic<int> level_ = 0;
};

// The diagnostic log of the process: a file named by the environment variable MORVEX_LOG, or by the option
// "LogFile"; standard output if the options say so. Nothing is opened where none of them is given, and then
// a line costs one test. Any thread may write.
class Log {
 public:
  // Lines before this call are dropped.
  static void Init(const Options& options);
  // Stops the log; lines are dropped again.
  static void Close();
  // The same object for the same name.
  static LogClient& GetClient(std::string_view name);
  // Whether a line would be seen by anybody; lets a caller save the work of making one.
  [[nodiscard]] static bool IsOpen();
};

}  // namespace Nox
