#pragma once

#include <deque>
#include <memory>
#include <thread>

#include "companions/devices/backends/winmm/wake_event.h"
#include "companions/devices/backends/winmm/wave_block.h"
#include "companions/devices/server/sound_server.h"

namespace mavrin2::devices {

// A wave device of the system that records, and the thread that takes what it has recorded. When
// the device has gone, nothing arrives any more.
class WaveCapture final : public InputStream {
public:
    // Null if the device refuses. `device` is a number or WAVE_MAPPER for the default device.
    static std::unique_ptr<WaveCapture> Begin(UINT device, const Format& format, SampleSink& sink);

    explicit WaveCapture(SampleSink& sink) : sink_(sink) {}
    WaveCapture(const WaveCapture&) = delete;
    WaveCapture& operator=(const WaveCapture&) = delete;
    // What the device has recorded so far still arrives.
    ~WaveCapture() override;

    void Observe() override {}

private:
    bool Open(UINT device, const Format& format);
    bool Queue(WaveBlock& block);
    // Delivers what is done and, if `again`, lets the device have the blocks again.
    void Deliver(bool again);

    SampleSink& sink_;
    WakeEvent done_;
    HWAVEIN handle_ = nullptr;
    std::deque<WaveBlock> blocks_;  // which the device fills one after the other, again and again
    std::size_t next_ = 0;
    std::jthread thread_;
};

}  // namespace mavrin2::devices
