#include "platform/worker_processes.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <map>
#include <thread>

#include "platform/interrupt.h"

namespace mavrin2::platform {
namespace {

class Workers {
public:
    explicit Workers(const std::function<void(std::size_t, bool)>& ended) : ended_(ended) {}

    std::size_t Count() const { return jobs_.size(); }

    void Start(std::size_t number, const std::function<int(std::size_t)>& job) {
        std::fflush(nullptr);  // else a copy would write it once more
        const pid_t process = ::fork();
        if (process == 0) {
            int code = 1;
            try {
                code = job(number);
            } catch (...) {  // a failure that the job did not report is one all the same
            }
            std::fflush(nullptr);
            ::_exit(code);
        }
        if (process < 0) return ended_(number, false);
        jobs_[process] = number;
    }

    // Waits until one has ended.
    void AwaitOne() {
        const std::size_t before = jobs_.size();
        while (jobs_.size() == before) {
            if (Interrupted()) ForwardInterrupt();
            if (!Collect()) std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }

private:
    bool Collect() {
        for (const auto& [process, number] : jobs_) {
            int status = 0;
            if (::waitpid(process, &status, WNOHANG) == 0) continue;
            const std::size_t job = number;
            jobs_.erase(process);
            ended_(job, WIFEXITED(status) && WEXITSTATUS(status) == 0);
            return true;
        }
        return false;
    }

    // Ctrl-C reaches the copies too, but `kill` only this process.
    void ForwardInterrupt() {
        if (forwarded_) return;
        forwarded_ = true;
        for (const auto& [process, number] : jobs_)
            ::kill(process, SIGTERM);
    }

    const std::function<void(std::size_t, bool)>& ended_;
    std::map<pid_t, std::size_t> jobs_;
    bool forwarded_ = false;
};

}  // namespace

void RunInProcesses(std::size_t count, const std::function<int(std::size_t)>& job,
                    const std::function<void(std::size_t, bool)>& ended) {
    const std::size_t atOnce = std::max(std::thread::hardware_concurrency(), 1U);
    Workers workers(ended);
    for (std::size_t number = 0; number < count && !Interrupted(); ++number) {
        while (workers.Count() >= atOnce)
            workers.AwaitOne();
        if (!Interrupted()) workers.Start(number, job);
    }
    while (workers.Count() > 0)
        workers.AwaitOne();
}

}  // namespace mavrin2::platform
