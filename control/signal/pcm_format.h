#pragma once

#include <cstdint>

namespace mavrin2::signal {

// Uncompressed sound, interleaved: signed samples of 16 bits or unsigned ones of 8.
struct PcmFormat {
    std::int32_t Rate = 44100;  // frames per second
    std::int32_t Channels = 2;
    std::int32_t Bits = 16;

    // Bytes of one frame.
    constexpr std::int32_t BlockAlignment() const { return Channels * Bits / 8; }

    friend constexpr bool operator==(const PcmFormat&, const PcmFormat&) = default;
};

}  // namespace mavrin2::signal
