#pragma once

#include "automation/interface_description.h"

namespace mavrin2::automation {

// The program that writes a library's text to the file that its one argument names; the exit code.
int RunIdlProgram(const LibraryDescription& (*library)(), int count, char** arguments);

}  // namespace mavrin2::automation
