#pragma once

#include <cstdint>

namespace mavrin2::dusoro {

// The kind of file that a host may name when it opens or saves one.
enum class FormatType : std::int32_t {
    Default = 0,
    Wav = 1,
    Mp3 = 2,
    Vox = 3,
    Raw = 4,
    G726 = 5,
    Ogg = 6,
    G721 = 7,
    G723 = 8,
    Avi = 9,
    Mpc = 10,
    Wma = 11,
    Mp2 = 12,
    G729 = 13,
};

}  // namespace mavrin2::dusoro
