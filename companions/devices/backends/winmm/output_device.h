#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace mavrin2::devices {

// An output device, open for one format. Used by one thread at a time.
class OutputDevice {
public:
    // Silent at once.
    virtual ~OutputDevice() = default;

    // Queues whole interleaved frames. False if the device has gone.
    virtual bool Write(std::span<const std::int16_t> samples) = 0;
    // Samples that wait in the device.
    virtual std::int64_t Waiting() = 0;
    // Frames heard of those written since the last reset; nothing if the device has gone. Does not
    // wait.
    virtual std::optional<std::int64_t> Heard() = 0;
    // Drops what waits: silent at once. Where nothing waits, the end of the sound is still heard.
    virtual void Reset() = 0;
};

}  // namespace mavrin2::devices
