#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosts/script/commands/command_line.h"

namespace mavrin2::script {

inline constexpr std::string_view kFolder = "-o";
inline constexpr std::string_view kTo = "--to";

// One file that `convert` makes of another.
struct Conversion {
    std::string In;
    std::string Out;

    bool OutputExists() const;
};

// What a command line asks for: IN and OUT, or any number of files and the folder that -o names.
// Throws UsageError, also where two files would get one name.
std::vector<Conversion> ConversionsOf(const CommandLine& line);

}  // namespace mavrin2::script
