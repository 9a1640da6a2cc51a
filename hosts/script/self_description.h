#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "hosts/script/commands/command.h"

namespace mavrin2::script {

// What completes the program's commands and options in a shell, "bash", "zsh" or "fish": a text to
// be read by it. Nothing for any other.
std::optional<std::string> CompletionFor(std::string_view shell,
                                         std::span<const Command* const> commands);

// The manual page: the overview and the help of each command, as `--help` shows them.
std::string ManualPage(std::string_view version, std::string_view overview,
                       std::span<const Command* const> commands);

}  // namespace mavrin2::script
