#include <cstdio>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/times.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 info FILE...

Shows the format, length (hours:minutes:seconds and sample frames), sample rate in hertz and number of
channels of each sound file.

Exit codes: 0 success, 1 a file could not be read, 2 usage error.
)";

void Print(const Editor& editor, const std::string& file) {
    const int rate = editor.Rate();
    const int frames = editor.Frames();
    std::printf(
        "File      %s\n"
        "Format    %s\n"
        "Length    %s (%d frames)\n"
        "Rate      %d Hz\n"
        "Channels  %d\n",
        file.c_str(), editor.Format().c_str(), DurationText(frames, rate).c_str(), frames, rate,
        editor.Channels());
}

int Run(const CommandLine& line) {
    if (line.Operands().empty()) throw UsageError("info needs at least one file");
    Editor editor;
    int code = kSuccess;
    bool first = true;
    for (const std::string& file : line.Operands()) {
        try {
            editor.Open(file);
            if (!first) std::puts("");
            Print(editor, file);
            first = false;
        } catch (const Failure& failure) {
            // In order, also where both streams go to one file.
            std::fflush(stdout);
            std::fprintf(stderr, "mavrin2: %s\n", failure.what());
            code = kFailure;
        }
    }
    return code;
}

}  // namespace

const Command kInfoCommand{"info", kHelp, {}, false, &Run};

}  // namespace mavrin2::script
