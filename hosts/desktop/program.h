#pragma once

namespace mavrin2::desktop {

// Runs the program with its arguments and returns its exit code.
int RunProgram(int count, char** values);

}  // namespace mavrin2::desktop
