#include "hosts/script/program.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "hosts/script/commands/convert_command.h"
#include "hosts/script/commands/failure.h"
#include "hosts/script/commands/info_command.h"
#include "hosts/script/commands/picture_command.h"
#include "hosts/script/commands/run_command.h"
#include "hosts/script/process/component_finder.h"
#include "hosts/script/process/interrupt.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 COMMAND ...

  run SCRIPT.lua [ARGUMENT...]                   runs a script that drives the sound editor
  info FILE...                                   tells format, length, rate and channels
  convert IN OUT [--start TIME] [--end TIME]     writes a sound, or a piece of it, to another file
  picture IN OUT.png [OPTION...]                 draws a sound

  --help       this text; `mavrin2 COMMAND --help` tells more of a command
  --version    the version

Exit codes: 0 all went well, 1 something failed, 2 wrong use.
)";

const Command* Find(const std::string& name) {
    for (const Command* command : {&kRunCommand, &kInfoCommand, &kConvertCommand, &kPictureCommand})
        if (command->Name == name) return command;
    return nullptr;
}

int Fail(int code, const std::string& message) {
    std::fflush(stdout);
    std::fprintf(stderr, "mavrin2: %s\n", message.c_str());
    return code;
}

int RunCommand(const Command& command, std::span<const std::string> arguments) {
    try {
        const CommandLine line(arguments, command.Options, command.LeadingOptions);
        if (line.AsksForHelp()) {
            std::fputs(command.Help, stdout);
            return kSuccess;
        }
        FindComponents();
        CatchInterrupts();
        const int code = command.Run(line);
        if (Interrupted()) DieInterrupted();
        return code;
    } catch (const UsageError& error) {
        return Fail(kWrongUse,
                    std::string(error.what()) + "\nTry 'mavrin2 " + command.Name + " --help'.");
    } catch (const Interruption&) {
        DieInterrupted();
    } catch (const std::exception& error) {
        return Fail(kFailure, error.what());
    }
}

int Dispatch(std::span<const std::string> arguments) {
    if (arguments.empty()) {
        std::fputs(kHelp, stderr);
        return kWrongUse;
    }
    const std::string& first = arguments.front();
    if (first == "--help" || first == "-h") {
        std::fputs(kHelp, stdout);
        return kSuccess;
    }
    if (first == "--version") {
        std::puts("mavrin2 " MAVRIN2_VERSION);
        return kSuccess;
    }
    if (const Command* command = Find(first)) return RunCommand(*command, arguments.subspan(1));
    return Fail(kWrongUse, (first.starts_with('-') ? "unknown option " : "unknown command ") +
                               first + "\nTry 'mavrin2 --help'.");
}

}  // namespace

int RunProgram(std::span<const std::string> arguments) {
    const int code = Dispatch(arguments);
    // A full disk behind `>` shows only here.
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        return Fail(kFailure, "standard output: " + std::generic_category().message(errno));
    return code;
}

}  // namespace mavrin2::script
