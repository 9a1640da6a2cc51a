#include "hosts/script/commands/info_command.h"

#include <cstdio>

#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/failure.h"
#include "hosts/script/commands/time_text.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 info FILE...

Tells of each sound file its format, its length (hours:minutes:seconds and sample frames), its rate
in frames per second and its channels.

Exit codes: 0 all files were read, 1 one could not be read, 2 wrong use.
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
    if (line.Operands().empty()) throw UsageError("info needs a file");
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
            // In the order in which they happened, also in one file.
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
