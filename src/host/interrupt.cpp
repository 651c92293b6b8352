#include "host/interrupt.h"

#include <csignal>

namespace morvex::host {

namespace {

volatile std::sig_atomic_t interrupted = 0;

extern "C" void OnInterrupt(int) {
  interrupted = 1;
  std::signal(SIGINT, SIG_DFL);
}

}  // namespace

void CatchInterrupts() {
  std::signal(SIGINT, &OnInterrupt);
  std::signal(SIGPIPE, SIG_IGN);
}

bool IsInterrupted() {
  return interrupted != 0;
}

}  // namespace morvex::host
