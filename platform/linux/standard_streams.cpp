#include "platform/standard_streams.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <ctime>

#include "platform/interrupt.h"
#include "platform/linux/base/last_error.h"

namespace mavrin2::platform {
namespace {

// What ends the wait arrives as a signal, or just before the wait begins.
std::error_code AwaitReady(int descriptor, short events) {
    constexpr int kMilliseconds = 100;
    pollfd waiting{descriptor, events, 0};
    while (!Interrupted()) {
        const int ready = ::poll(&waiting, 1, kMilliseconds);
        if (ready > 0) return {};
        if (ready < 0 && errno != EINTR) return LastError();
    }
    return std::make_error_code(std::errc::operation_canceled);
}

// Keeps the signal that a write to a pipe without a reader causes from the program.
class WithoutPipeSignal {
public:
    WithoutPipeSignal() {
        ::sigemptyset(&pipe_);
        ::sigaddset(&pipe_, SIGPIPE);
        ::pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
    }
    WithoutPipeSignal(const WithoutPipeSignal&) = delete;
    WithoutPipeSignal& operator=(const WithoutPipeSignal&) = delete;
    ~WithoutPipeSignal() {
        constexpr timespec kNow{};
        while (::sigtimedwait(&pipe_, nullptr, &kNow) > 0) {
        }
        ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }

private:
    sigset_t pipe_{};
    sigset_t before_{};
};

}  // namespace

std::size_t ReadStandardInput(std::span<std::byte> target, std::error_code& error) {
    for (;;) {
        error = AwaitReady(STDIN_FILENO, POLLIN);
        if (error) return 0;
        const ssize_t count = ::read(STDIN_FILENO, target.data(), target.size());
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno == EINTR || errno == EAGAIN) continue;
        error = LastError();
        return 0;
    }
}

std::error_code WriteStandardOutput(std::span<const std::byte> source) {
    const WithoutPipeSignal quiet;
    struct stat status = {};
    const bool isFile = ::fstat(STDOUT_FILENO, &status) == 0 && S_ISREG(status.st_mode);
    // More might not fit into a pipe that is ready, and the write would wait.
    const std::size_t most = isFile ? source.size() : PIPE_BUF;
    while (!source.empty()) {
        if (const auto error = AwaitReady(STDOUT_FILENO, POLLOUT)) return error;
        const ssize_t count = ::write(STDOUT_FILENO, source.data(), std::min(most, source.size()));
        if (count >= 0)
            source = source.subspan(static_cast<std::size_t>(count));
        else if (errno != EINTR && errno != EAGAIN)
            return LastError();
    }
    return {};
}

bool StandardOutputIsTerminal() {
    return ::isatty(STDOUT_FILENO) != 0;
}

void KeepPlacesOfStandardStreams() {
    // The lowest free number is the one that is given out.
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(descriptor, F_GETFD) < 0)
            ::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

}  // namespace mavrin2::platform
