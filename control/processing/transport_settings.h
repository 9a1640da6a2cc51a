#pragma once

#include <cstdint>

namespace mavrin2::processing {

// How sound goes to or comes from a device. Kept as a host wrote it.
struct DeviceBuffering {
    std::int16_t BufferCount = 2;     // blocks given to the player before it runs
    std::int32_t BufferSize = 500;    // of a block, in milliseconds
    std::int16_t TimerInterval = 10;  // between two positions, in milliseconds
};

// How fast is played. Kept as a host wrote it.
struct PlaySpeed {
    std::int16_t PlaySpeedEnabled = 0;
    float PlaySpeedPercent = 100;  // of the duration: 200 is half as fast, an octave lower

    bool Changes() const { return PlaySpeedEnabled != 0; }
    // 10 … 1000; 100 for what is no number.
    float Percent() const;
};

}  // namespace mavrin2::processing
