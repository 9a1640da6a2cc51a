#include "companions/devices/server/null_server.h"

#include <algorithm>
#include <mutex>

namespace mavrin2::devices {
namespace {

constexpr std::int64_t kBufferMilliseconds = 100;

// Frames that pass in a time.
std::int64_t FramesIn(std::int64_t milliseconds, std::int32_t rate) {
    return milliseconds * rate / 1000;
}

class NullOutput final : public OutputStream {
public:
    NullOutput(const StreamRequest& request, SampleSource& source,
               std::shared_ptr<platform::Clock> clock)
        : source_(source),
          clock_(std::move(clock)),
          format_(request.Sound),
          room_(FramesIn(kBufferMilliseconds + request.ExtraLatency.count(), format_.Rate)),
          since_(clock_->Milliseconds()) {}

    void Supply() override {
        const std::lock_guard lock(mutex_);
        Advance();
    }
    void Finish() override {}
    StreamProgress Observe() override {
        const std::lock_guard lock(mutex_);
        Advance();
        return {heard_, false};
    }

private:
    void Advance() {
        const std::int64_t now = clock_->Milliseconds();
        heard_ = start_ + FramesIn(now - since_, format_.Rate);
        // What arrives late is heard from now on.
        if (heard_ >= taken_) {
            heard_ = start_ = taken_;
            since_ = now;
        }
        const auto free = static_cast<std::size_t>(heard_ + room_ - taken_);
        buffer_.resize(free * static_cast<std::size_t>(format_.Channels));
        taken_ += static_cast<std::int64_t>(source_.Take(buffer_)) / format_.Channels;
    }

    SampleSource& source_;
    const std::shared_ptr<platform::Clock> clock_;
    const Format format_;
    const std::int64_t room_;
    std::mutex mutex_;
    std::vector<std::int16_t> buffer_;
    std::int64_t since_;  // when the frame `start_` was heard
    std::int64_t start_ = 0;
    std::int64_t heard_ = 0;
    std::int64_t taken_ = 0;
};

class NullInput final : public InputStream {
public:
    NullInput(Format format, SampleSink& sink, std::shared_ptr<platform::Clock> clock)
        : sink_(sink),
          clock_(std::move(clock)),
          format_(format),
          begun_(clock_->Milliseconds()),
          silence_(static_cast<std::size_t>(format.Rate * format.Channels)) {}

    void Observe() override {
        const std::lock_guard lock(mutex_);
        const std::int64_t due = FramesIn(clock_->Milliseconds() - begun_, format_.Rate);
        while (delivered_ < due) {
            const std::int64_t frames = std::min<std::int64_t>(due - delivered_, format_.Rate);
            sink_.Put(
                std::span(silence_).first(static_cast<std::size_t>(frames * format_.Channels)));
            delivered_ += frames;
        }
    }

private:
    SampleSink& sink_;
    const std::shared_ptr<platform::Clock> clock_;
    const Format format_;
    const std::int64_t begun_;
    const std::vector<std::int16_t> silence_;
    std::mutex mutex_;
    std::int64_t delivered_ = 0;
};

}  // namespace

std::optional<std::vector<Device>> NullServer::List(Direction, Deadline) {
    return std::vector{device_};
}

bool NullServer::Change(Direction, const std::string&, const MixerChange& change, Deadline) {
    switch (change.What) {
        case MixerChange::Control::Volume:
            device_.Volume = change.Value;
            return true;
        case MixerChange::Control::Muted:
            device_.Muted = change.Value != 0;
            return true;
        default:
            return false;
    }
}

std::unique_ptr<OutputStream> NullServer::Play(const StreamRequest& request, SampleSource& source,
                                               Deadline) {
    return std::make_unique<NullOutput>(request, source, clock_);
}

std::unique_ptr<InputStream> NullServer::Record(const StreamRequest& request, SampleSink& sink,
                                                Deadline) {
    return std::make_unique<NullInput>(request.Sound, sink, clock_);
}

}  // namespace mavrin2::devices
