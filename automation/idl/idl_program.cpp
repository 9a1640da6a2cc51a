#include "automation/idl/idl_program.h"

#include <cstdio>
#include <exception>
#include <fstream>

#include "automation/idl/idl_writer.h"

namespace mavrin2::automation {

int RunIdlProgram(const LibraryDescription& (*library)(), int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "Usage: %s FILE.idl\n", arguments[0]);
        return 2;
    }
    try {
        std::ofstream file(arguments[1], std::ios::binary | std::ios::trunc);
        file << IdlOf(library());
        if (file.flush()) return 0;
        std::fprintf(stderr, "%s: cannot be written\n", arguments[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], error.what());
    }
    return 1;
}

}  // namespace mavrin2::automation
