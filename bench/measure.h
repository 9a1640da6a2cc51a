#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace mavrin2::bench {

// Something that takes time, with what must be done before and after each run of it.
struct Action {
    std::string Name;
    std::function<void()> Run;
    std::function<void()> Before = [] {};
    std::function<void()> After = [] {};
};

enum class Clock {
    Elapsed,
    // Time that processors worked for this process and the programs that it ran: a machine that is
    // also busy with other things disturbs it less. For programs of one thread only.
    Processor
};

double SecondsOf(const std::function<void()>& run, Clock clock = Clock::Elapsed);
double Median(std::vector<double> values);

// Runs the actions in turn, `rounds` times after one warm-up, and gives each one's times. In turn,
// because a shared machine changes its speed from minute to minute.
std::vector<std::vector<double>> RunInTurn(const std::vector<Action>& actions, int rounds,
                                           Clock clock = Clock::Elapsed);

// One line of the result table: ours beside the fastest of the others, and the limit.
void PrintRatio(const std::string& task, const Action& ours, const std::vector<Action>& others,
                double limit, int rounds, Clock clock = Clock::Elapsed);
void PrintValue(const std::string& task, double value, const std::string& unit, double limit);

// A program with its arguments, without a shell; its output is dropped. Throws when it cannot be
// started or fails.
void RunProgram(const std::vector<std::string>& command);
// The action of running a program that writes `output`, which is deleted afterwards.
Action ProgramWriting(const std::filesystem::path& output, std::vector<std::string> command);

}  // namespace mavrin2::bench
