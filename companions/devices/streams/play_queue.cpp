#include "companions/devices/streams/play_queue.h"

#include <algorithm>

namespace mavrin2::devices {
namespace {

void Silence(std::span<std::int16_t> samples, std::size_t channel) {
    for (std::size_t i = channel; i < samples.size(); i += 2)
        samples[i] = 0;
}

}  // namespace

PlayQueue::PlayQueue(Format format, std::int64_t historyFrames, std::function<void()> blockDone)
    : format_(format), blockDone_(std::move(blockDone)), taken_(format.Channels, historyFrames) {}

void PlayQueue::Add(std::vector<std::int16_t> block) {
    const std::lock_guard lock(mutex_);
    blocks_.push_back(std::move(block));
}

void PlayQueue::Answered() {
    const std::lock_guard lock(mutex_);
    --questions_;
}

std::size_t PlayQueue::Take(std::span<std::int16_t> samples) {
    std::size_t done = 0;
    std::int64_t finished = 0;
    {
        const std::lock_guard lock(mutex_);
        while (done < samples.size() && !blocks_.empty()) {
            const auto rest = std::span(blocks_.front()).subspan(at_);
            const auto part = rest.first(std::min(rest.size(), samples.size() - done));
            std::copy(part.begin(), part.end(),
                      samples.begin() + static_cast<std::ptrdiff_t>(done));
            done += part.size();
            at_ += part.size();
            if (part.size() < rest.size()) break;
            blocks_.pop_front();
            at_ = 0;
            ++finished;
        }
        if (format_.Channels == 2 && channels_ != OutputChannels::Both)
            Silence(samples.first(done), channels_ == OutputChannels::Left ? 1 : 0);
        taken_.Append(samples.first(done));
        questions_ += finished;
    }
    for (; finished > 0; --finished)
        blockDone_();
    return done;
}

bool PlayQueue::IsComplete() const {
    const std::lock_guard lock(mutex_);
    return questions_ == 0 && blocks_.empty();
}

std::int64_t PlayQueue::Taken() const {
    const std::lock_guard lock(mutex_);
    return taken_.End();
}

bool PlayQueue::IsEmpty() const {
    const std::lock_guard lock(mutex_);
    return blocks_.empty();
}

Levels PlayQueue::PeaksOf(std::int64_t first, std::int64_t last) const {
    const std::lock_guard lock(mutex_);
    return taken_.PeaksOf(first, last);
}

std::vector<std::int16_t> PlayQueue::Before(std::int64_t last, std::int64_t count) const {
    const std::lock_guard lock(mutex_);
    return taken_.Before(last, count);
}

}  // namespace mavrin2::devices
