#pragma once

namespace mavrin2::platform {

// Requests to end a program: Ctrl-C, Ctrl-\, a closed terminal, `kill`, a pipe without a reader.
// The program ends where it can clean up first. A second request of the same kind ends it at once.
// Everything here belongs to the whole process; only the action runs outside the calling thread's
// order.

// From now on requests are recorded instead of ending the program. A request that the program was
// started to ignore stays ignored.
void CatchInterrupts();

// Whether one was recorded. Any thread.
bool Interrupted();

// Whether one was recorded, which is then forgotten: what it has ended ends as it should, and the
// next request is recorded again.
bool TakeInterrupt();

// Called as soon as a request arrives, in the middle of other code: it may call only what a signal
// handler may. Null for no action. While there is one, a request also ends the system call that
// waits, as for input, with an error; otherwise the wait goes on.
void SetInterruptAction(void (*action)());

// Ends the program the way the recorded request would have ended it, so that a shell sees the
// cause. What was written to C streams is flushed.
[[noreturn]] void DieInterrupted();

}  // namespace mavrin2::platform
