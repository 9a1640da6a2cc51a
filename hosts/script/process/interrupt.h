#pragma once

namespace mavrin2::script {

// What the user asks for with Ctrl-C (or by SIGTERM, SIGHUP): the program stops where it can do so
// cleanly. Asked a second time it dies at once, as it would without this.

// From then on the signals are noted; a signal that the starter of the program ignores stays so.
void CatchInterrupts();

bool Interrupted();

// Something to be done at once, in the midst of whatever runs: it may call only what a signal
// handler may. Null for nothing.
void SetInterruptAction(void (*action)());

// Lets the signal that was noted end the program after all: that is how a shell learns of it.
[[noreturn]] void DieInterrupted();

}  // namespace mavrin2::script
