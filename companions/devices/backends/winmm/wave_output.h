#pragma once

#include <deque>
#include <memory>

#include "companions/devices/backends/winmm/output_device.h"
#include "companions/devices/backends/winmm/wake_event.h"
#include "companions/devices/backends/winmm/wave_block.h"
#include "companions/devices/backends/winmm/wrapping_counter.h"
#include "companions/devices/server/sound_server.h"

namespace mavrin2::devices {

// A wave device of the system that plays.
class WaveOutput final : public OutputDevice {
public:
    // Null if the device refuses. `device` is a number or WAVE_MAPPER for the default device;
    // `done` is set whenever a block has been played, and outlives the device.
    static std::unique_ptr<WaveOutput> Open(UINT device, const Format& format, WakeEvent& done);

    WaveOutput(HWAVEOUT handle, const Format& format);
    WaveOutput(const WaveOutput&) = delete;
    WaveOutput& operator=(const WaveOutput&) = delete;
    ~WaveOutput() override;

    bool Write(std::span<const std::int16_t> samples) override;
    std::int64_t Waiting() override;
    std::optional<std::int64_t> Heard() override;
    void Reset() override;

private:
    // The counter of the device, in the unit that it has.
    std::optional<std::uint32_t> Reading();
    std::int64_t FramesOf(std::int64_t count) const;
    bool Queue(WaveBlock& block);
    void Release(WaveBlock& block);
    void Silence();

    const HWAVEOUT handle_;
    const Format format_;
    const std::size_t blockSamples_;
    std::deque<WaveBlock> blocks_;  // in the order in which they are played
    std::int64_t waiting_ = 0;
    // Frames since the counter began: all, and those before the last reset.
    std::int64_t written_ = 0;
    std::int64_t before_ = 0;
    UINT unit_ = TIME_BYTES;
    WrappingCounter counter_;
};

}  // namespace mavrin2::devices
