#pragma once

#include <string>
#include <string_view>

#include "tagdata/tag_container.h"

namespace morvex {

// The body of a POST: the tags of a form, each a part of its own. A tag that is a container with `filedata` and
// `filename` is a file, any other its text. Refused if a name or file name holds a line end or a NUL.
class MultipartForm {
 public:
  static constexpr std::string_view kBoundary = "1E3N2D4";

  explicit MultipartForm(const TagContainer& form);

  [[nodiscard]] bool Refused() const { return refused_; }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  void AddFile(std::string_view name, std::string_view fileName, std::string_view data);
  void AddText(std::string_view name, std::string_view value);
  void AddLines(const class LineBlock& lines);

  std::string text_;
  bool refused_ = false;
};

}  // namespace morvex
