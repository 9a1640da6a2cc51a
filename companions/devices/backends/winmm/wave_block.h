#pragma once

#include <atomic>
#include <vector>

#include "companions/devices/backends/winmm/system_sound.h"

namespace mavrin2::devices {

// Sound on its way to or from a device. From when it is given to the device until it is done it
// belongs to the device.
struct WaveBlock {
    explicit WaveBlock(std::vector<std::int16_t> samples) : Samples(std::move(samples)) {
        Header.lpData = reinterpret_cast<LPSTR>(Samples.data());
        Header.dwBufferLength = static_cast<DWORD>(Samples.size() * sizeof(std::int16_t));
    }
    WaveBlock(const WaveBlock&) = delete;
    WaveBlock& operator=(const WaveBlock&) = delete;
    ~WaveBlock() = default;

    bool IsDone() const {
        // Another thread of the system sets it.
        const bool done = (static_cast<const volatile WAVEHDR&>(Header).dwFlags & WHDR_DONE) != 0;
        std::atomic_thread_fence(std::memory_order_acquire);
        return done;
    }

    std::vector<std::int16_t> Samples;
    WAVEHDR Header{};
};

}  // namespace mavrin2::devices
