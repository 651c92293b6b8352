#include "host/console.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <iostream>

#include "engine/format.h"
#include "engine/text.h"
#include "host/visible_text.h"

namespace morvex::host {

namespace {

constexpr std::string_view kReset = "\x1B[0m";
constexpr std::string_view kEraseLine = "\r\x1B[K";
constexpr uint64_t kDrawEvery = 100;  // milliseconds
constexpr size_t kBarWidth = 30;

constexpr std::string_view SequenceOf(Style style) {
  switch (style) {
    case Style::kBold:
      return "\x1B[1m";
    case Style::kDim:
      return "\x1B[2m";
    case Style::kRed:
      return "\x1B[31m";
    case Style::kGreen:
      return "\x1B[32m";
    case Style::kYellow:
      return "\x1B[33m";
    case Style::kBlue:
      return "\x1B[36m";
  }
  return "";
}

std::string Painted(Style style, std::string_view text) {
  return std::string(SequenceOf(style)).append(text).append(kReset);
}

std::string_view Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

// The first of the three that is set decides, as everywhere.
bool LocaleIsUtf8() {
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const std::string_view value = Variable(name);
    if (value.empty()) continue;
    return Nox::EndsWithIgnoreCase(value, "UTF-8") || Nox::EndsWithIgnoreCase(value, "UTF8");
  }
  return false;
}

uint64_t Milliseconds() {
  using std::chrono::steady_clock;
  return static_cast<uint64_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(steady_clock::now().time_since_epoch()).count());
}

}  // namespace

Console::Console(Colours colours) : speaksUtf8_(LocaleIsUtf8()) {
  const bool wanted = Variable("NO_COLOR").empty() && Variable("TERM") != "dumb";
  const auto isColoured = [&](bool isTerminal) {
    return colours == Colours::kAlways || (colours == Colours::kAuto && wanted && isTerminal);
  };
  errorsAreSeen_ = isatty(STDERR_FILENO) == 1;
  outIsColoured_ = isColoured(isatty(STDOUT_FILENO) == 1);
  errorsAreColoured_ = isColoured(errorsAreSeen_);
}

std::ostream& Console::Out() const {
  return std::cout;
}

std::string Console::Paint(Style style, std::string_view text) const {
  return outIsColoured_ ? Painted(style, text) : std::string(text);
}

void Console::Error(std::string_view message) const {
  std::cout.flush();
  std::cerr << (errorsAreColoured_ ? Painted(Style::kRed, "error:") : "error:") << ' ' << VisibleText(message)
            << '\n';
}

void Console::Note(std::string_view message) const {
  std::cout.flush();
  std::cerr << VisibleText(message) << '\n';
}

bool Console::Flush() const {
  errno = 0;
  std::cout.flush();
  if (std::cout) return true;
  if (errno != EPIPE) Error("The output couldn't be written. Is the disk full?");
  return false;
}

ProgressBar::ProgressBar(const Console& console, std::string_view what, uint64_t total)
    : seen_(console.ErrorsAreSeen()), what_(what), total_(total), drawnAt_(Milliseconds()) {}

ProgressBar::~ProgressBar() {
  if (isDrawn_) std::cerr << kEraseLine << std::flush;
}

void ProgressBar::ShowOf(uint64_t done, uint64_t total) {
  done_ = done;
  total_ = total;
  if (!seen_) return;
  const uint64_t now = Milliseconds();
  if (now - drawnAt_ < kDrawEvery) return;
  drawnAt_ = now;
  Draw();
}

void ProgressBar::Draw() {
  std::string line(kEraseLine);
  line += what_;
  if (total_ == 0) {
    Nox::AppendFormat(line, "  %u", done_);
  } else {
    const uint64_t done = std::min(done_, total_);
    const size_t filled =
        static_cast<size_t>(static_cast<double>(done) / static_cast<double>(total_) * kBarWidth);
    line.append("  [").append(filled, '#').append(kBarWidth - filled, ' ');
    Nox::AppendFormat(line, "] %u of %u", done, total_);
  }
  std::cerr << line << std::flush;
  isDrawn_ = true;
}

}  // namespace morvex::host
