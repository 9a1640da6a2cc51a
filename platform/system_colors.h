#pragma once

#include <cstdint>

namespace mavrin2::platform {

// Colours that the user has chosen for all programs: 0x00BBGGRR, as automation writes colours.
struct SystemColors {
    std::uint32_t ButtonFace = 0;
    std::uint32_t Highlight = 0;  // the lit edges of raised things
    std::uint32_t Shadow = 0;     // the dark ones
};

}  // namespace mavrin2::platform
