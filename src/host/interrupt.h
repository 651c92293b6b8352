#pragma once

namespace morvex::host {

// From now on the first Ctrl-C lets the run end by itself, with its index written; the second ends it at once. A
// reader that goes away early doesn't end the run either.
void CatchInterrupts();

// True once the run should end. Long loops ask between their steps.
[[nodiscard]] bool IsInterrupted();

}  // namespace morvex::host
