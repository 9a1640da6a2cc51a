#include "companions/devices/backends/winmm/wave_playback.h"

#include <algorithm>

namespace mavrin2::devices {
namespace {

using std::chrono::milliseconds;

// What waits in the device, enough for a busy machine.
constexpr milliseconds kBuffer{120};
// After a run: when what is left of it is dropped, and when the device is closed after that.
constexpr milliseconds kDrop{15};
constexpr milliseconds kLinger{1000};
// A device may count less than it was given, as where it converts the rate. When it has nothing
// left and its counter has not moved for this long, everything has been heard.
constexpr milliseconds kSettled{200};

}  // namespace

WavePlayback::WavePlayback(const OpenDevice& open, StreamRequest request)
    : request_(std::move(request)),
      room_((kBuffer + request_.ExtraLatency).count() * request_.Sound.Rate / 1000 *
            request_.Sound.Channels),
      device_(open(wake_)) {
    if (device_) thread_ = std::jthread([this](const std::stop_token& stop) { Serve(stop); });
}

WavePlayback::~WavePlayback() {
    thread_.request_stop();
    wake_.Set();
    if (thread_.joinable()) thread_.join();
}

bool WavePlayback::IsUsable() {
    const std::lock_guard lock(mutex_);
    return device_ && !lost_;
}

bool WavePlayback::Fits(const StreamRequest& request) const {
    return request.Sound == request_.Sound && request.Device == request_.Device &&
           request.ExtraLatency == request_.ExtraLatency;
}

void WavePlayback::Serve(const std::stop_token& stop) {
    ::SetThreadPriority(::GetCurrentThread(), THREAD_PRIORITY_HIGHEST);
    while (!stop.stop_requested()) {
        std::optional<milliseconds> limit;
        {
            const std::lock_guard lock(mutex_);
            DoWhatIsDue();
            Write();
            limit = UntilDue();
        }
        wake_.Wait(limit);
    }
}

void WavePlayback::DoWhatIsDue() {
    if (!due_ || Clock::now() < *due_) return;
    due_.reset();
    if (left_) {
        Drop();
        if (!source_) due_ = Clock::now() + kLinger;
    } else if (!source_) {
        device_.reset();
    }
}

std::optional<milliseconds> WavePlayback::UntilDue() const {
    if (!due_) return std::nullopt;
    return std::max(std::chrono::ceil<milliseconds>(*due_ - Clock::now()), milliseconds(0));
}

void WavePlayback::Begin(SampleSource& source) {
    {
        const std::lock_guard lock(mutex_);
        source_ = &source;
        written_ = heard_ = counted_ = 0;
        countedSince_ = Clock::now();
        // In case nothing comes.
        if (left_)
            due_ = Clock::now() + kDrop;
        else
            due_.reset();
    }
    wake_.Set();
}

void WavePlayback::End() {
    {
        const std::lock_guard lock(mutex_);
        source_ = nullptr;
        left_ = true;
        due_ = Clock::now() + kDrop;
    }
    wake_.Set();
}

void WavePlayback::Drop() {
    left_ = false;
    if (device_) device_->Reset();
}

void WavePlayback::Write() {
    if (!source_ || !device_ || lost_) return;
    for (;;) {
        const std::int64_t free = left_ ? room_ : room_ - device_->Waiting();
        if (free <= 0) return;
        samples_.resize(static_cast<std::size_t>(free));
        const std::size_t taken = source_->Take(samples_);
        if (taken == 0) return;
        if (left_) {
            Drop();
            due_.reset();
        }
        lost_ = !device_->Write(std::span(samples_).first(taken));
        if (lost_) return;
        written_ += static_cast<std::int64_t>(taken) / request_.Sound.Channels;
        countedSince_ = Clock::now();
    }
}

void WavePlayback::Supply() {
    const std::lock_guard lock(mutex_);
    Write();
}

std::int64_t WavePlayback::HeardNow() {
    // The counter is still that of the run before.
    if (left_) return 0;
    const auto counted = device_->Heard();
    if (!counted) {
        lost_ = true;
        return heard_;
    }
    const auto now = Clock::now();
    if (*counted != counted_) {
        counted_ = *counted;
        countedSince_ = now;
    }
    if (device_->Waiting() == 0 && now - countedSince_ >= kSettled) return written_;
    return std::min(counted_, written_);
}

StreamProgress WavePlayback::Observe() {
    const std::lock_guard lock(mutex_);
    if (device_ && !lost_) heard_ = std::max(heard_, HeardNow());
    return {heard_, !device_ || lost_};
}

}  // namespace mavrin2::devices
