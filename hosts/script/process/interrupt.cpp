#include "hosts/script/process/interrupt.h"

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace mavrin2::script {
namespace {

using Action = void (*)();

// A signal handler reaches nothing but what is global.
std::atomic<int> notedSignal = 0;
std::atomic<Action> noted = nullptr;
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<Action>::is_always_lock_free);

void Note(int signal) {
    notedSignal = signal;
    if (const Action action = noted) action();
}

}  // namespace

void CatchInterrupts() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
        action = {};
        action.sa_handler = &Note;
        action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
        ::sigaction(signal, &action, nullptr);
    }
}

bool Interrupted() {
    return notedSignal != 0;
}

void SetInterruptAction(void (*action)()) {
    noted = action;
}

void DieInterrupted() {
    std::fflush(nullptr);
    const int signal = notedSignal;
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    std::_Exit(128 + signal);
}

}  // namespace mavrin2::script
