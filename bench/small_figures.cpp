#include <string>
#include <vector>

#include "bench/editor.h"
#include "bench/figures.h"
#include "bench/measure.h"

namespace mavrin2::bench {

namespace {

// A million samples from a Lua table into a document and back.
void PrintArrays(const std::string& program) {
    const std::string script = std::string(BENCH_SCRIPTS) + "/arrays.lua";
    constexpr int kRounds = 20;
    std::vector<double> both;
    for (int i = 0; i < 10; ++i) {
        const auto run = [&](int rounds) {
            return SecondsOf([&] { RunProgram({program, "run", script, std::to_string(rounds)}); });
        };
        const double start = run(0);
        both.push_back((run(kRounds) - start) / kRounds * 1000);
    }
    PrintValue("A million samples from Lua and back", Median(both), "ms", 200);
}

}  // namespace

void PrintSmallFigures(const Folder& data, const Folder& programs) {
    const std::string program = (programs / "mavrin2").string();
    const std::string sound = (data / "small.wav").string();
    std::vector<double> info;
    for (int i = 0; i < 30; ++i)
        info.push_back(SecondsOf([&] { RunProgram({program, "info", sound}); }) * 1000);
    PrintValue("mavrin2 info of a small WAV", Median(info), "ms", 30);

    std::vector<double> made;
    for (int i = 0; i < 200; ++i)
        made.push_back(SecondsOf([] { Editor editor; }) * 1000);
    PrintValue("Making and releasing a control", Median(made), "ms", 1);
    PrintArrays(program);
}

}  // namespace mavrin2::bench
