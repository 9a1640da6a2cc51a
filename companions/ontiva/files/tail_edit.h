#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace mavrin2::ontiva {

// A change that is made in the file itself, for files that are too long to be copied for a few
// bytes. First `Tail` is appended, which nothing refers to yet; then come the switches, each a
// write within one page, which a process that is killed makes wholly or not at all. The file reads
// as before until the last of them and as changed from then on.
struct TailEdit {
    struct Switch {
        std::int64_t Offset;
        std::string Bytes;
    };
    std::string Tail;
    std::vector<Switch> Switches;
};

}  // namespace mavrin2::ontiva
