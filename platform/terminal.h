#pragma once

#include <cstdio>
#include <optional>

namespace mavrin2::platform {

// The present width, in columns, of the terminal that `stream` writes to; 80 where the terminal
// does not say. Nothing when the stream is no terminal.
std::optional<int> TerminalWidth(std::FILE* stream);

}  // namespace mavrin2::platform
