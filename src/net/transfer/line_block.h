#pragma once

#include <string>
#include <string_view>

#include "engine/format.h"

namespace morvex {

// Lines of a request, gathered to be sent in one piece. A value that is put into one may come from anywhere: one
// with a line end or a NUL, which would make another request of it, makes the whole block refused.
class LineBlock {
 public:
  // Expands `format`, which ends in CR LF, as engine/format.h says.
  template <typename... Args>
  void Add(std::string_view format, const Args&... args) {
    AddLine(Nox::FormatText(format, args...));
  }

  void Add(const LineBlock& lines) {
    text_ += lines.text_;
    refused_ = refused_ || lines.refused_;
  }

  void Refuse() { refused_ = true; }
  [[nodiscard]] bool Refused() const { return refused_; }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  void AddLine(std::string_view line) {
    const std::string_view content = line.substr(0, line.size() - 2);
    refused_ = refused_ || !line.ends_with("\r\n") || content.find_first_of({"\r\n\0", 3}) != content.npos;
    text_ += line;
  }

  std::string text_;
  bool refused_ = false;
};

}  // namespace morvex
