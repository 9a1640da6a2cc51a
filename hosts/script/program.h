#pragma once

#include <span>
#include <string>

namespace mavrin2::script {

// Runs the program; the arguments are those after its name. Returns the exit code.
int RunProgram(std::span<const std::string> arguments);

}  // namespace mavrin2::script
