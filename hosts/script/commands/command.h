#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "hosts/script/commands/printable.h"

namespace mavrin2::script {

class CommandLine;

inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;
inline constexpr int kWrongUse = 2;

// Why a command cannot do what it was asked to, as one line for standard error.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;

    Failure(const std::string& subject, const std::string& reason)
        : std::runtime_error(Printable(subject) + ": " + reason) {}
};

// A command line that cannot be understood.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The user has asked the program to stop. Thrown on the way out, which cleans up.
struct Interruption {};

// One command of the program.
struct Command {
    const char* Name;
    const char* Help;
    std::span<const std::string_view> Options;
    bool LeadingOptions;  // everything after the first operand is an operand too
    // Returns the exit code, or throws Failure, UsageError, CallError or Interruption.
    int (*Run)(const CommandLine& line);
    std::span<const std::string_view> Flags = {};  // options without a value
    // Writes help that the component gives, after the text; may throw as Run.
    void (*MoreHelp)() = nullptr;
};

extern const Command kRunCommand;
extern const Command kInfoCommand;
extern const Command kConvertCommand;
extern const Command kJoinCommand;
extern const Command kMixCommand;
extern const Command kTagsCommand;
extern const Command kMarkersCommand;
extern const Command kCdCommand;
extern const Command kPlayCommand;
extern const Command kRecordCommand;
extern const Command kDevicesCommand;
extern const Command kPictureCommand;
extern const Command kProcessCommand;
extern const Command kOperationsCommand;

}  // namespace mavrin2::script
