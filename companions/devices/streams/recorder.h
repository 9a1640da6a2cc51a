#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "companions/devices/server/sound_server.h"
#include "companions/devices/streams/position_events.h"
#include "companions/devices/streams/ticker.h"
#include "platform/posting.h"

namespace mavrin2::devices {

// As PlayerEvents.
class RecorderEvents {
public:
    virtual ~RecorderEvents() = default;
    virtual void OnBlockReady() = 0;
    virtual void OnRecorded(std::int64_t frames, Levels levels) = 0;
    virtual void OnGain(std::int32_t percent) = 0;
};

// What is done to sound before it is stored. Used on one thread at a time.
class RecordingProcess {
public:
    virtual ~RecordingProcess() = default;
    // Changes whole interleaved frames in place.
    virtual void Process(std::span<std::int16_t> samples) = 0;
    // Appends to `stored` what of the processed frames, and of those held back before, is to be
    // stored.
    virtual void Store(std::span<const std::int16_t> samples,
                       std::vector<std::int16_t>& stored) = 0;
    // Percent.
    virtual std::int32_t Gain() const = 0;
};

// What was captured, in blocks. Any thread.
class CaptureBlocks {
public:
    explicit CaptureBlocks(std::size_t samplesPerBlock) : samples_(samplesPerBlock) {}

    // The number of blocks that this completes.
    std::size_t Append(std::span<const std::int16_t> samples);
    // The next block, empty if none is complete. `rest`: also one that is not.
    std::vector<std::int16_t> Next(bool rest);

private:
    const std::size_t samples_;
    std::mutex mutex_;
    std::deque<std::vector<std::int16_t>> blocks_;
    std::vector<std::int16_t> part_;
};

// Recording from one start to the next stop. Made and destroyed on the thread of the component;
// once it is destroyed no event arrives any more.
class CaptureRun final : private SampleSink {
public:
    CaptureRun(SoundServer* server, const StreamRequest& request, Deadline deadline,
               const TimerInterval& interval, std::unique_ptr<RecordingProcess> process,
               std::shared_ptr<CaptureBlocks> blocks, RecorderEvents& events);
    ~CaptureRun() override;

    bool IsStarted() const { return stream_ != nullptr; }
    // The processed frames captured last.
    std::vector<std::int16_t> Recent(std::int64_t count) const;

private:
    void Put(std::span<const std::int16_t> samples) override;
    std::optional<std::chrono::milliseconds> Watch();
    void ReportGain(std::int32_t percent);

    struct LatestGain;

    const std::unique_ptr<platform::PostingRun> posting_;
    const Poster post_;
    const Format format_;
    const TimerInterval& interval_;
    const std::shared_ptr<CaptureBlocks> blocks_;
    RecorderEvents& events_;
    PositionEvents positions_;
    const std::shared_ptr<LatestGain> gain_;

    mutable std::mutex mutex_;  // of what follows, up to the stream
    const std::unique_ptr<RecordingProcess> process_;
    std::vector<std::int16_t> processed_;
    std::vector<std::int16_t> stored_;
    std::int64_t storedFrames_ = 0;
    SampleHistory history_;

    std::unique_ptr<InputStream> stream_;
    // Of the watching thread.
    std::int64_t reported_ = 0;  // frames captured
    std::chrono::steady_clock::time_point nextReport_;
    std::optional<Ticker> ticker_;
};

}  // namespace mavrin2::devices
