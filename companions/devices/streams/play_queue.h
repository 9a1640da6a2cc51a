#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <vector>

#include "companions/devices/server/sound_server.h"
#include "companions/devices/streams/sample_history.h"

namespace mavrin2::devices {

// Which channels of a stereo sound are heard.
enum class OutputChannels { Left = 1, Right = 2, Both = 3 };

// The blocks of one run on their way to the device. Any thread.
//
// Each block that has gone to the device is a question to the host, whether there is more. The run
// may end when all questions have been answered; the start of a run is the first of them.
class PlayQueue final : public SampleSource {
public:
    // `blockDone` is called for every block, on the thread that takes samples.
    PlayQueue(Format format, std::int64_t historyFrames, std::function<void()> blockDone);

    // Whole interleaved frames, at least one.
    void Add(std::vector<std::int16_t> block);
    void Choose(OutputChannels channels) { channels_ = channels; }
    // One more question has been answered.
    void Answered();

    std::size_t Take(std::span<std::int16_t> samples) override;

    // Whether all has gone to the device and nothing more is to be expected.
    bool IsComplete() const;
    // Frames that have gone to the device.
    std::int64_t Taken() const;
    // Whether no sample waits.
    bool IsEmpty() const;
    Levels PeaksOf(std::int64_t first, std::int64_t last) const;
    std::vector<std::int16_t> Before(std::int64_t last, std::int64_t count) const;

private:
    const Format format_;
    const std::function<void()> blockDone_;
    std::atomic<OutputChannels> channels_ = OutputChannels::Both;
    mutable std::mutex mutex_;
    std::deque<std::vector<std::int16_t>> blocks_;
    std::size_t at_ = 0;  // in the first block
    std::int64_t questions_ = 1;
    SampleHistory taken_;
};

}  // namespace mavrin2::devices
