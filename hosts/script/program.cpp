#include "hosts/script/program.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "hosts/binding/find_components.h"
#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/printable.h"
#include "hosts/script/self_description.h"
#include "platform/interrupt.h"
#include "platform/standard_streams.h"

namespace mavrin2::script {
namespace {

constexpr const char* kVersion = "mavrin2 " MAVRIN2_VERSION;

constexpr const char* kHelp =
    R"(Usage: mavrin2 COMMAND ...

  run SCRIPT.lua [ARGUMENT...]                   run a script that drives the sound editor
  info FILE... [--exact] [--json]                show format, length, tags, damage
  convert IN... OUT [OPTION...]                  convert sound files, or parts of them
  join OUT IN...                                 write sound files one after another
  mix OUT IN[@GAIN%]...                          mix sound files
  process IN OUT OPERATION...                    run operations on a sound file, or part of it
  operations                                     list these operations
  tags FILE [NAME=VALUE... OUT]                  show or change title, artist and other tags
  markers FILE [--from LIST OUT]                 list or replace the markers of a sound file
  cd [DRIVE...]                                  list the tracks of CDs and of their images
  play FILE [OPTION...]                          play a sound file, or part of it
  record OUT [OPTION...]                         record into a sound file
  devices                                        list the devices for playing and recording
  picture IN... OUT.png [OPTION...]              draw sound files

  help COMMAND explain a command, as `mavrin2 COMMAND --help` does
  help man     the manual page
  completion SHELL  what completes commands and options in bash, zsh or fish
  --help       show this text
  --version    show the version

FILE, IN and SCRIPT.lua may be -, standard input, and OUT -, standard output, whose format --format
names: `mavrin2 convert - - --format flac`; except in tags and markers.
Exit codes: 0 success, 1 failure, 2 usage error.
)";

constexpr const Command* kCommands[] = {
    &kRunCommand,     &kInfoCommand,    &kConvertCommand,    &kJoinCommand,   &kMixCommand,
    &kPictureCommand, &kProcessCommand, &kOperationsCommand, &kTagsCommand,   &kMarkersCommand,
    &kCdCommand,      &kPlayCommand,    &kRecordCommand,     &kDevicesCommand};

const Command* Find(const std::string& name) {
    const auto* const found = std::ranges::find_if(
        kCommands, [&](const Command* command) { return command->Name == name; });
    return found == std::end(kCommands) ? nullptr : *found;
}

int Fail(int code, const std::string& message) {
    std::fflush(stdout);
    std::fprintf(stderr, "mavrin2: %s\n", message.c_str());
    return code;
}

int RunCommand(const Command& command, std::span<const std::string> arguments) {
    try {
        const CommandLine line(arguments, command.Options, command.LeadingOptions, command.Flags);
        if (line.AsksForVersion()) {
            std::puts(kVersion);
            return kSuccess;
        }
        if (line.AsksForHelp()) {
            std::fputs(command.Help, stdout);
            if (!command.MoreHelp) return kSuccess;
            binding::FindComponents();
            command.MoreHelp();
            return kSuccess;
        }
        binding::FindComponents();
        platform::CatchInterrupts();
        const int code = command.Run(line);
        if (platform::Interrupted()) platform::DieInterrupted();
        return code;
    } catch (const UsageError& error) {
        return Fail(kWrongUse,
                    std::string(error.what()) + "\nTry 'mavrin2 " + command.Name + " --help'.");
    } catch (const Interruption&) {
        platform::DieInterrupted();
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
    if (first == "--help" || first == "-h" || (first == "help" && arguments.size() == 1)) {
        std::fputs(kHelp, stdout);
        return kSuccess;
    }
    if (first == "completion") {
        const auto text = CompletionFor(arguments.size() == 2 ? arguments[1] : "", kCommands);
        if (!text) return Fail(kWrongUse, "completion needs a shell: bash, zsh or fish");
        std::fputs(text->c_str(), stdout);
        return kSuccess;
    }
    if (first == "help" && arguments.size() > 1) {
        if (arguments[1] == "man") {
            std::fputs(ManualPage(kVersion, kHelp, kCommands).c_str(), stdout);
            return kSuccess;
        }
        if (const Command* command = Find(arguments[1])) {
            const std::string help[] = {"--help"};
            return RunCommand(*command, help);
        }
        return Fail(kWrongUse,
                    "unknown command '" + Printable(arguments[1]) + "'\nTry 'mavrin2 --help'.");
    }
    if (first == "--version") {
        std::puts(kVersion);
        return kSuccess;
    }
    if (const Command* command = Find(first)) return RunCommand(*command, arguments.subspan(1));
    return Fail(kWrongUse, (first.starts_with('-') ? "unknown option '" : "unknown command '") +
                               first + "'\nTry 'mavrin2 --help'.");
}

}  // namespace

int RunProgram(std::span<const std::string> arguments) {
    platform::KeepPlacesOfStandardStreams();
    const int code = Dispatch(arguments);
    // Where standard output is a file on a full disk, the failure shows only here.
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        return Fail(kFailure, "standard output: " + std::generic_category().message(errno));
    return code;
}

}  // namespace mavrin2::script
