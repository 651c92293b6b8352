#pragma once

#include <string_view>

#include "engine/format.h"
#include "engine/log.h"

namespace morvex {

// Diagnostics for the engine's log, a line each, under the client "MorvexClassic". What a user should read
// goes elsewhere. A line begins with the function's name and ">". Any thread.
class MorvexLog {
 public:
  // Expands `format` as engine/format.h says. Costs one test where nobody reads the log.
  template <typename... Args>
  static void Message(std::string_view format, const Args&... args) {
    if (Nox::Log::IsOpen()) Line(Nox::FormatText(format, args...));
  }

  // Logs, then throws a MorvexEx with the text.
  template <typename... Args>
  [[noreturn]] static void Fatal(std::string_view format, const Args&... args) {
    Throw(Nox::FormatText(format, args...));
  }

 private:
  static void Line(std::string_view text);
  [[noreturn]] static void Throw(const std::string& text);
};

// Stores the calling thread as the main thread.
void MarkMainThread();
[[nodiscard]] bool IsMainThread();

}  // namespace morvex
