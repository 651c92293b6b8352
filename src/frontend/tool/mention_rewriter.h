#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "engine/file.h"
#include "frontend/tool/name_matcher.h"

namespace morvex {

// Copies a file byte by byte and changes, in place, every run of at least five bytes that a listed name ends in:
// letters lowered, unsafe characters replaced. The length stays, so that a binary file keeps its layout. At most
// a few blocks are in memory.
class MentionRewriter {
 public:
  MentionRewriter(const NameMatcher& names, Nox::File& in, Nox::File& out)
      : names_(names), in_(in), out_(out) {}

  // Runs to the end of `in` and calls `found` with each mention, before it is changed. True if any byte changed.
  bool Run(const std::function<void(std::string_view)>& found);

  // True if everything read was written.
  bool Complete() const { return complete_; }

 private:
  void Flush(std::size_t keep);
  bool MakeSafe(std::size_t start);

  const NameMatcher& names_;
  Nox::File& in_;
  Nox::File& out_;
  std::string window_;  // read, and not written yet
  bool complete_ = true;
};

}  // namespace morvex
