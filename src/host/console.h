#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace morvex::host {

enum class Style { kBold, kDim, kRed, kGreen, kYellow, kBlue };

// The two streams of a run: results go to standard output, messages and progress to standard error. Colours are used
// where a stream is a terminal, unless NO_COLOR is set or the user said otherwise. For the main thread.
class Console {
 public:
  enum class Colours { kAuto, kAlways, kNever };

  explicit Console(Colours colours);

  std::ostream& Out() const;
  // `text` in a style, for standard output.
  std::string Paint(Style style, std::string_view text) const;

  // One message each, shown as it can be shown.
  void Error(std::string_view message) const;
  void Note(std::string_view message) const;

  // Whether lines of UTF-8 can be expected to be seen as such.
  bool SpeaksUtf8() const { return speaksUtf8_; }
  bool ErrorsAreSeen() const { return errorsAreSeen_; }

  // Hands all results to the system. False if they couldn't be written; nobody is told where the reader has gone.
  [[nodiscard]] bool Flush() const;

 private:
  bool outIsColoured_ = false;
  bool errorsAreColoured_ = false;
  bool errorsAreSeen_ = false;  // by somebody at a terminal
  bool speaksUtf8_ = false;
};

// A bar on standard error, where that is a terminal, for as long as it lives. Drawn a few times a second.
class ProgressBar {
 public:
  // `total` counts whatever Advance counts; 0: nobody knows.
  ProgressBar(const Console& console, std::string_view what, uint64_t total);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void Advance(uint64_t count = 1) { Show(done_ + count); }
  void Show(uint64_t done) { ShowOf(done, total_); }
  // Where the total is learnt on the way.
  void ShowOf(uint64_t done, uint64_t total);

 private:
  void Draw();

  const bool seen_;
  const std::string what_;
  uint64_t total_;
  uint64_t done_ = 0;
  uint64_t drawnAt_ = 0;  // milliseconds
  bool isDrawn_ = false;
};

}  // namespace morvex::host
