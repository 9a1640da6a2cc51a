#include "platform/interrupt.h"

#include <csignal>

#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace mavrin2::platform {
namespace {

using Action = void (*)();

// A signal handler can reach only what is global.
std::atomic<int> recordedSignal = 0;
std::atomic<Action> interruptAction = nullptr;
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<Action>::is_always_lock_free);

void Record(int signal) {
    recordedSignal = signal;
    if (const Action action = interruptAction) action();
}

void Catch(bool restartCalls) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE}) {
        struct sigaction action = {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
        action = {};
        action.sa_handler = &Record;
        // Cleaning up may write to the same pipe again.
        const auto once = signal == SIGPIPE ? 0U : unsigned{SA_RESETHAND};
        action.sa_flags = static_cast<int>(once | (restartCalls ? unsigned{SA_RESTART} : 0U));
        ::sigaction(signal, &action, nullptr);
    }
}

}  // namespace

void CatchInterrupts() {
    Catch(true);
}

bool Interrupted() {
    return recordedSignal != 0;
}

bool TakeInterrupt() {
    if (recordedSignal.exchange(0) == 0) return false;
    // A signal is caught once.
    CatchInterrupts();
    return true;
}

void SetInterruptAction(void (*action)()) {
    interruptAction = action;
    if (!Interrupted()) Catch(action == nullptr);
}

void DieInterrupted() {
    std::fflush(nullptr);
    const int signal = recordedSignal;
    ::signal(signal, SIG_DFL);
    ::raise(signal);
    std::_Exit(128 + signal);
}

}  // namespace mavrin2::platform
