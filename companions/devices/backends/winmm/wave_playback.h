#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "companions/devices/backends/winmm/output_device.h"
#include "companions/devices/backends/winmm/wake_event.h"
#include "companions/devices/server/sound_server.h"

namespace mavrin2::devices {

// An open device that plays one run after the other, and the thread that keeps it supplied. Between
// two runs it is silent and stays open for a second. What is left of a run is dropped when the next
// one has its first samples, or a few milliseconds after its end: a sound that starts again at
// once, as a loop does, has no gap.
class WavePlayback {
public:
    // Opens a device, which sets the event whenever something has been played. Null if it cannot.
    using OpenDevice = std::function<std::unique_ptr<OutputDevice>(WakeEvent& done)>;

    WavePlayback(const OpenDevice& open, StreamRequest request);
    WavePlayback(const WavePlayback&) = delete;
    WavePlayback& operator=(const WavePlayback&) = delete;
    ~WavePlayback();

    // Whether the device is open and there.
    bool IsUsable();
    // Whether a run of such a request can use it.
    bool Fits(const StreamRequest& request) const;

    void Begin(SampleSource& source);
    // Silence at once; the source is not called any more.
    void End();

    void Supply();
    StreamProgress Observe();

private:
    using Clock = std::chrono::steady_clock;

    void Serve(const std::stop_token& stop);
    // These are called under the lock.
    void Write();
    void Drop();
    void DoWhatIsDue();
    std::optional<std::chrono::milliseconds> UntilDue() const;
    std::int64_t HeardNow();

    const StreamRequest request_;
    const std::int64_t room_;  // samples
    WakeEvent wake_;
    std::mutex mutex_;
    std::unique_ptr<OutputDevice> device_;
    bool lost_ = false;
    SampleSource* source_ = nullptr;
    bool left_ = false;  // something of the run before, perhaps
    // When that is dropped, and after that when the device is closed.
    std::optional<Clock::time_point> due_;
    std::vector<std::int16_t> samples_;
    std::int64_t written_ = 0;  // frames of the present run
    std::int64_t heard_ = 0;
    // Since when the counter of the device has been where it is.
    std::int64_t counted_ = 0;
    Clock::time_point countedSince_;
    std::jthread thread_;
};

}  // namespace mavrin2::devices
