#pragma once

#include <span>
#include <string>

namespace mavrin2::script {

// The whole program; the arguments are those behind its name. Returns the exit code.
int RunProgram(std::span<const std::string> arguments);

}  // namespace mavrin2::script
