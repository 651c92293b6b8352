#include "tagdata/morvex_log.h"

#include <atomic>

#include "engine/thread.h"
#include "tagdata/morvex_ex.h"

namespace morvex {
namespace {

std::atomic<uint32_t> mainThread{0};

// Fetched once; the lines of this system have the level of diagnostics.
Nox::LogClient& Client() {
  static Nox::LogClient& client = []() -> Nox::LogClient& {
    constexpr int kDiagnosticLevel = 2;
    Nox::LogClient& made = Nox::Log::GetClient("MorvexClassic");
    made.SetLevel(kDiagnosticLevel);
    return made;
  }();
  return client;
}

}  // namespace

// Here, so that the class has one home for its table of virtual functions.
MorvexEx::~MorvexEx() = default;

void MorvexLog::Line(std::string_view text) {
  Client().OutputString(text);
}

void MorvexLog::Throw(const std::string& text) {
  Line(text);
  throw MorvexEx(text);
}

void MarkMainThread() {
  mainThread = Nox::GetCurrentThreadId();
}
bool IsMainThread() {
  return mainThread == Nox::GetCurrentThreadId();
}

}  // namespace morvex
