#include "bench/measure.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <stdexcept>

namespace mavrin2::bench {

namespace {

double ElapsedSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

double ProcessorSeconds() {
    double seconds = 0;
    for (const auto whose : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        getrusage(whose, &usage);
        for (const timeval& time : {usage.ru_utime, usage.ru_stime})
            seconds += static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    }
    return seconds;
}

}  // namespace

double SecondsOf(const std::function<void()>& run, Clock clock) {
    const auto now = clock == Clock::Elapsed ? &ElapsedSeconds : &ProcessorSeconds;
    const double from = now();
    run();
    return now() - from;
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::vector<std::vector<double>> RunInTurn(const std::vector<Action>& actions, int rounds,
                                           Clock clock) {
    std::vector<std::vector<double>> times(actions.size());
    for (int round = -1; round < rounds; ++round) {
        for (std::size_t i = 0; i < actions.size(); ++i) {
            actions[i].Before();
            const double seconds = SecondsOf(actions[i].Run, clock);
            actions[i].After();
            if (round >= 0) times[i].push_back(seconds);
        }
    }
    return times;
}

void PrintRatio(const std::string& task, const Action& ours, const std::vector<Action>& others,
                double limit, int rounds, Clock clock) {
    std::vector<Action> all{ours};
    all.insert(all.end(), others.begin(), others.end());
    const auto times = RunInTurn(all, rounds, clock);
    std::size_t best = 1;
    for (std::size_t i = 1; i < all.size(); ++i)
        if (Median(times[i]) < Median(times[best])) best = i;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round)
        ratios.push_back(times[0][static_cast<std::size_t>(round)] /
                         times[best][static_cast<std::size_t>(round)]);
    std::printf("| %s | %.3f s |", task.c_str(), Median(times[0]));
    for (std::size_t i = 1; i < all.size(); ++i)
        std::printf(" %s %.3f s%s", all[i].Name.c_str(), Median(times[i]),
                    i + 1 < all.size() ? "," : "");
    std::printf(" | %.2f × %s | %.2f × |\n", Median(ratios), all[best].Name.c_str(), limit);
    std::fflush(stdout);
}

void PrintValue(const std::string& task, double value, const std::string& unit, double limit) {
    std::printf("| %s | %.3f %s | | | %g %s |\n", task.c_str(), value, unit.c_str(), limit,
                unit.c_str());
    std::fflush(stdout);
}

void RunProgram(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("fork failed");
    if (child == 0) {
        const int nowhere = open("/dev/null", O_RDWR);
        for (int stream = 0; stream < 3; ++stream)
            dup2(nowhere, stream);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(command.front() + " failed");
}

Action ProgramWriting(const std::filesystem::path& output, std::vector<std::string> command) {
    return {std::filesystem::path(command.front()).filename().string(),
            [command] { RunProgram(command); }, [output] { std::filesystem::remove(output); },
            [output] { std::filesystem::remove(output); }};
}

}  // namespace mavrin2::bench
