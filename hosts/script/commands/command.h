#pragma once

#include <span>
#include <string_view>

#include "hosts/script/commands/command_line.h"

namespace mavrin2::script {

inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;
inline constexpr int kWrongUse = 2;

// One command of the program.
struct Command {
    const char* Name;
    const char* Help;
    std::span<const std::string_view> Options;
    bool LeadingOptions;  // whatever follows the first operand belongs to that
    // Returns the exit code, or throws Failure, UsageError, CallError or Interruption.
    int (*Run)(const CommandLine& line);
};

}  // namespace mavrin2::script
