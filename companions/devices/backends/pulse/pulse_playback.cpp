#include "companions/devices/backends/pulse/pulse_playback.h"

#include <algorithm>

namespace mavrin2::devices {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// What there is between this program and the ear. The server divides it: half of what remains after
// two requests is the device's, 20 ms, which a stop cannot take back; 100 ms wait in the stream,
// enough for a busy machine.
constexpr milliseconds kBuffer{120};
constexpr milliseconds kRequest{40};
// How often the position of the server is asked for; in between it goes on with the clock, but not
// for longer than the second time, in case the server has stopped.
constexpr milliseconds kRefresh{100};
constexpr std::int64_t kLongestAge = 300'000;  // microseconds
// After a run: when what is left of it is dropped, and when the stream is closed after that.
constexpr pa_usec_t kDrop = 15'000;
constexpr pa_usec_t kLinger = 1'000'000;

std::uint32_t BytesIn(milliseconds time, const pa_sample_spec& format) {
    return static_cast<std::uint32_t>(
        pa_usec_to_bytes(static_cast<pa_usec_t>(time.count()) * 1000, &format));
}

}  // namespace

PulsePlayback::PulsePlayback(std::shared_ptr<PulseConnection> connection, StreamRequest request)
    : connection_(std::move(connection)), request_(std::move(request)) {}

PulsePlayback::~PulsePlayback() {
    if (!stream_) return;
    const PulseLock lock(*connection_);
    Unschedule();
    if (refresh_) {
        pa_operation_cancel(refresh_);
        pa_operation_unref(refresh_);
    }
    pa_stream_set_write_callback(stream_, nullptr, nullptr);
    pa_stream_set_state_callback(stream_, nullptr, nullptr);
    pa_stream_disconnect(stream_);
    pa_stream_unref(stream_);
}

bool PulsePlayback::Fits(const PulseConnection& connection, const StreamRequest& request) const {
    return &connection == connection_.get() && request.Sound == request_.Sound &&
           request.Device == request_.Device && request.ExtraLatency == request_.ExtraLatency;
}

bool PulsePlayback::IsUsable() {
    const PulseLock lock(*connection_);
    return stream_ && pa_stream_get_state(stream_) == PA_STREAM_READY;
}

bool PulsePlayback::Begin(SampleSource& source, Deadline deadline) {
    if (stream_) {
        {
            const PulseLock lock(*connection_);
            Unschedule();
        }
        // The server may not answer any more. What is left is heard meanwhile.
        if (!connection_->Complete(
                deadline, [&] { return pa_stream_update_timing_info(stream_, nullptr, nullptr); }))
            return false;
    } else {
        const PulseLock lock(*connection_);
        pa_sample_spec format{};
        format.format = PA_SAMPLE_S16NE;
        format.rate = static_cast<std::uint32_t>(request_.Sound.Rate);
        format.channels = static_cast<std::uint8_t>(request_.Sound.Channels);
        stream_ = pa_stream_new(connection_->Context(), "Playback", &format, nullptr);
        if (!stream_) return false;
        pa_stream_set_state_callback(
            stream_, [](pa_stream*, void* c) { static_cast<PulseConnection*>(c)->Notify(); },
            connection_.get());
        pa_stream_set_write_callback(
            stream_,
            [](pa_stream*, std::size_t, void* self) { static_cast<PulsePlayback*>(self)->Write(); },
            this);
        pa_buffer_attr buffer{};
        buffer.maxlength = static_cast<std::uint32_t>(-1);
        buffer.tlength = BytesIn(kBuffer + request_.ExtraLatency, format);
        buffer.minreq = BytesIn(kRequest, format);
        // Not 0: the position has to wait while there is nothing to play.
        buffer.prebuf = static_cast<std::uint32_t>(pa_frame_size(&format));
        buffer.fragsize = static_cast<std::uint32_t>(-1);
        // The volume is the device's alone, whatever this program had when it played last.
        pa_cvolume full;
        pa_cvolume_set(&full, format.channels, PA_VOLUME_NORM);
        constexpr auto kFlags = static_cast<pa_stream_flags_t>(
            PA_STREAM_ADJUST_LATENCY | PA_STREAM_START_UNMUTED | PA_STREAM_RELATIVE_VOLUME);
        const char* device = request_.Device.empty() ? nullptr : request_.Device.c_str();
        if (pa_stream_connect_playback(stream_, device, &buffer, kFlags, &full, nullptr) < 0)
            return false;
    }
    const bool decided = connection_->Await(deadline, [&] {
        const auto state = pa_stream_get_state(stream_);
        return state == PA_STREAM_READY || !PA_STREAM_IS_GOOD(state);
    });
    const PulseLock lock(*connection_);
    if (!decided || pa_stream_get_state(stream_) != PA_STREAM_READY) return false;
    base_.reset();
    written_ = heard_ = 0;
    source_ = &source;
    // In case nothing comes.
    if (left_) Schedule(kDrop);
    Refresh();
    return true;
}

void PulsePlayback::End() {
    const PulseLock lock(*connection_);
    source_ = nullptr;
    if (!stream_ || pa_stream_get_state(stream_) != PA_STREAM_READY) return;
    left_ = true;
    Schedule(kDrop);
}

void PulsePlayback::Drop() {
    if (!left_) return;
    left_ = false;
    if (pa_operation* flush = pa_stream_flush(stream_, nullptr, nullptr)) pa_operation_unref(flush);
}

void PulsePlayback::Schedule(pa_usec_t delay) {
    Unschedule();
    event_ = pa_context_rttime_new(
        connection_->Context(), pa_rtclock_now() + delay,
        [](pa_mainloop_api*, pa_time_event*, const timeval*, void* self) {
            static_cast<PulsePlayback*>(self)->OnTime();
        },
        this);
}

void PulsePlayback::Unschedule() {
    if (!event_) return;
    pa_threaded_mainloop_get_api(connection_->Loop())->time_free(event_);
    event_ = nullptr;
}

void PulsePlayback::OnTime() {
    Unschedule();
    const bool dropped = !left_;
    Drop();
    if (source_) return;
    if (dropped)
        pa_stream_disconnect(stream_);
    else
        Schedule(kLinger);
}

std::int64_t PulsePlayback::FramesOf(std::int64_t bytes) const {
    return bytes / 2 / request_.Sound.Channels;
}

void PulsePlayback::Write() {
    if (!source_ || pa_stream_get_state(stream_) != PA_STREAM_READY) return;
    const std::size_t frame = 2 * static_cast<std::size_t>(request_.Sound.Channels);
    for (;;) {
        std::size_t room = pa_stream_writable_size(stream_);
        // What is dropped makes room, before the server says so.
        const pa_buffer_attr* buffer = pa_stream_get_buffer_attr(stream_);
        if (left_ && buffer && room < buffer->tlength) room = buffer->tlength;
        if (room == static_cast<std::size_t>(-1) || room < frame) return;
        void* data = nullptr;
        std::size_t bytes = room;
        if (pa_stream_begin_write(stream_, &data, &bytes) < 0 || !data) return;
        bytes -= bytes % frame;
        const std::size_t taken = source_->Take({static_cast<std::int16_t*>(data), bytes / 2}) * 2;
        if (taken == 0) {
            pa_stream_cancel_write(stream_);
            return;
        }
        Drop();
        if (pa_stream_write(stream_, data, taken, nullptr, 0, PA_SEEK_RELATIVE) < 0) return;
        written_ += FramesOf(static_cast<std::int64_t>(taken));
        if (taken < bytes) return;
    }
}

void PulsePlayback::Supply() {
    const PulseLock lock(*connection_);
    Write();
}

// PipeWire keeps what is less than one of its periods until it knows that there is no more.
void PulsePlayback::Finish() {
    const PulseLock lock(*connection_);
    if (pa_operation* drain = pa_stream_drain(stream_, nullptr, nullptr)) pa_operation_unref(drain);
}

void PulsePlayback::Refresh() {
    if (refresh_) {
        if (pa_operation_get_state(refresh_) == PA_OPERATION_RUNNING) return;
        pa_operation_unref(refresh_);
    }
    refresh_ = pa_stream_update_timing_info(stream_, nullptr, nullptr);
    refreshed_ = steady_clock::now();
}

// The server says how far it has read and how much of that the device has not played yet.
std::int64_t PulsePlayback::HeardNow() {
    const pa_timing_info* timing = pa_stream_get_timing_info(stream_);
    if (!timing || timing->read_index_corrupt) return heard_;
    if (!base_) {
        // The library corrects the server's number by what was written since; not by what was
        // dropped, after which it waits for another one.
        if (left_ || timing->write_index_corrupt) return heard_;
        base_ = timing->write_index - written_ * 2 * request_.Sound.Channels;
    }
    const std::int64_t read = FramesOf(timing->read_index - *base_);
    const auto frames = [&](std::int64_t microseconds) {
        return microseconds * request_.Sound.Rate / 1'000'000;
    };
    timeval now{};
    pa_gettimeofday(&now);
    const std::int64_t age =
        pa_timeval_cmp(&now, &timing->timestamp) < 0
            ? 0
            : static_cast<std::int64_t>(pa_timeval_diff(&now, &timing->timestamp));
    const std::int64_t passed = frames(std::min(age, kLongestAge));
    std::int64_t pending = frames(static_cast<std::int64_t>(timing->sink_usec));
    if (timing->playing) return std::min(read - pending + passed, written_);
    // The device plays what it still has, then silence.
    pending -= FramesOf(timing->since_underrun) + passed;
    return std::min(read - std::max<std::int64_t>(pending, 0), written_);
}

StreamProgress PulsePlayback::Observe() {
    const PulseLock lock(*connection_);
    if (pa_stream_get_state(stream_) != PA_STREAM_READY) return {heard_, true};
    heard_ = std::max(heard_, HeardNow());
    const pa_timing_info* timing = pa_stream_get_timing_info(stream_);
    const bool settled = base_ && timing && timing->playing && written_ > 0;
    if (!settled || steady_clock::now() - refreshed_ >= kRefresh) Refresh();
    return {heard_, false};
}

}  // namespace mavrin2::devices
