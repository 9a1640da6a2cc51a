#pragma once

#include <memory>
#include <optional>

#include "companions/devices/backends/pulse/pulse_connection.h"

namespace mavrin2::devices {

// A stream of the server that plays one run after the other. Between two of them it is silent and
// stays with the server for a second. What is left of a run is dropped when the next one has its
// first samples, or a few milliseconds after its end: a sound that starts again at once, as a loop
// does, has no gap.
class PulsePlayback {
public:
    PulsePlayback(std::shared_ptr<PulseConnection> connection, StreamRequest request);
    PulsePlayback(const PulsePlayback&) = delete;
    PulsePlayback& operator=(const PulsePlayback&) = delete;
    ~PulsePlayback();

    // Waits for the server. False if it refuses the stream or does not answer in time.
    bool Begin(SampleSource& source, Deadline deadline);
    // Silence at once; the source is not called any more.
    void End();

    bool IsUsable();
    // Whether another run can use it.
    bool Fits(const PulseConnection& connection, const StreamRequest& request) const;

    void Supply();
    void Finish();
    StreamProgress Observe();

private:
    // All of these are called under the lock or on the connection's thread.
    void Write();
    void Refresh();
    std::int64_t HeardNow();
    void Drop();
    void Schedule(pa_usec_t delay);
    void Unschedule();
    void OnTime();
    std::int64_t FramesOf(std::int64_t bytes) const;

    const std::shared_ptr<PulseConnection> connection_;
    const StreamRequest request_;
    pa_stream* stream_ = nullptr;
    pa_operation* refresh_ = nullptr;
    pa_time_event* event_ = nullptr;
    std::chrono::steady_clock::time_point refreshed_;
    SampleSource* source_ = nullptr;
    bool left_ = false;  // something of the run before, perhaps
    // Where the present run begins among the bytes of the stream, once that is known; its frames.
    std::optional<std::int64_t> base_;
    std::int64_t written_ = 0;
    std::int64_t heard_ = 0;
};

}  // namespace mavrin2::devices
