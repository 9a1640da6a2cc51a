#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <stdexcept>

namespace mavrin2::tests {

// A copy of this process that runs a function and ends with its result. Killed and waited for at
// the end of the scope, if it still runs then. To be made while there is one thread only.
class ChildProcess {
public:
    explicit ChildProcess(const std::function<int()>& body) : id_(::fork()) {
        if (id_ < 0) throw std::runtime_error("fork failed");
        // Nothing of the test's own may run twice, so no destructors and no exit handlers.
        if (id_ == 0) ::_exit(body());
    }
    ~ChildProcess() {
        if (id_ > 0) Kill();
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Its result; -1 when it did not come to one.
    int Wait() {
        int status = 0;
        const pid_t ended = ::waitpid(id_, &status, 0);
        id_ = 0;
        return ended > 0 && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    // Without any chance to clean up, as in a crash.
    void Kill() {
        ::kill(id_, SIGKILL);
        Wait();
    }

private:
    pid_t id_;
};

// Lets one process wait for another to come to a point.
class Signal {
public:
    Signal() {
        if (::pipe(ends_) != 0) throw std::runtime_error("pipe failed");
    }
    ~Signal() {
        ::close(ends_[0]);
        ::close(ends_[1]);
    }
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    void Give() { [[maybe_unused]] const auto written = ::write(ends_[1], "!", 1); }
    bool Await() {
        char byte = 0;
        return ::read(ends_[0], &byte, 1) == 1;
    }

private:
    int ends_[2];
};

}  // namespace mavrin2::tests
