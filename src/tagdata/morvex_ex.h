#pragma once

#include <stdexcept>
#include <string>

namespace morvex {

// The one error that is thrown: the run can't go on. Everything else answers by its result.
class MorvexEx : public std::runtime_error {
 public:
  explicit MorvexEx(const std::string& text) : std::runtime_error(text) {}
  ~MorvexEx() override;

  // What to show above the text.
  virtual const char* Title() const { return "Morvex Error"; }
  // The source file that the error is attributed to.
  const char* SourceFile() const { return "MorvexLog"; }
};

}  // namespace morvex
