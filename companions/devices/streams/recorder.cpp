#include "companions/devices/streams/recorder.h"

#include <algorithm>
#include <utility>

namespace mavrin2::devices {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::int64_t kHistorySeconds = 2;
// A stream is looked after this often.
constexpr milliseconds kCare{40};
constexpr std::int32_t kUnchanged = 100;  // percent

}  // namespace

std::size_t CaptureBlocks::Append(std::span<const std::int16_t> samples) {
    const std::lock_guard lock(mutex_);
    std::size_t completed = 0;
    while (!samples.empty()) {
        const auto part = samples.first(std::min(samples.size(), samples_ - part_.size()));
        part_.insert(part_.end(), part.begin(), part.end());
        samples = samples.subspan(part.size());
        if (part_.size() < samples_) break;
        blocks_.push_back(std::exchange(part_, {}));
        ++completed;
    }
    return completed;
}

std::vector<std::int16_t> CaptureBlocks::Next(bool rest) {
    const std::lock_guard lock(mutex_);
    if (blocks_.empty()) return rest ? std::exchange(part_, {}) : std::vector<std::int16_t>();
    auto block = std::move(blocks_.front());
    blocks_.pop_front();
    return block;
}

// At most one gain waits for the component's thread, the newest.
struct CaptureRun::LatestGain {
    std::atomic<std::int32_t> Percent = kUnchanged;
    std::atomic<bool> Waiting = false;
};

CaptureRun::CaptureRun(SoundServer* server, const StreamRequest& request, Deadline deadline,
                       const TimerInterval& interval, std::unique_ptr<RecordingProcess> process,
                       std::shared_ptr<CaptureBlocks> blocks, RecorderEvents& events)
    : posting_(platform::PostingQueue::OfThisThread()->BeginRun()),
      post_(posting_->Poster()),
      format_(request.Sound),
      interval_(interval),
      blocks_(std::move(blocks)),
      events_(events),
      positions_(post_, [&events](std::int64_t frames,
                                  Levels levels) { events.OnRecorded(frames, levels); }),
      gain_(std::make_shared<LatestGain>()),
      process_(std::move(process)),
      history_(format_.Channels, format_.Rate * kHistorySeconds) {
    if (server) stream_ = server->Record(request, *this, deadline);
    if (!stream_) return;
    nextReport_ = steady_clock::now() + milliseconds(interval_.Milliseconds());
    ticker_.emplace([this] { return Watch(); });
}

CaptureRun::~CaptureRun() {
    ticker_.reset();
    stream_.reset();
}

std::vector<std::int16_t> CaptureRun::Recent(std::int64_t count) const {
    const std::lock_guard lock(mutex_);
    return history_.Before(history_.End(), count);
}

void CaptureRun::Put(std::span<const std::int16_t> samples) {
    std::size_t completed = 0;
    std::int32_t gain = kUnchanged;
    {
        const std::lock_guard lock(mutex_);
        processed_.assign(samples.begin(), samples.end());
        process_->Process(processed_);
        history_.Append(processed_);
        stored_.clear();
        process_->Store(processed_, stored_);
        storedFrames_ += static_cast<std::int64_t>(stored_.size()) / format_.Channels;
        completed = blocks_->Append(stored_);
        gain = process_->Gain();
    }
    for (; completed > 0; --completed)
        post_([&events = events_] { events.OnBlockReady(); });
    ReportGain(gain);
}

void CaptureRun::ReportGain(std::int32_t percent) {
    if (gain_->Percent.exchange(percent) == percent || gain_->Waiting.exchange(true)) return;
    post_([gain = gain_, &events = events_] {
        gain->Waiting = false;
        events.OnGain(gain->Percent);
    });
}

std::optional<milliseconds> CaptureRun::Watch() {
    stream_->Observe();
    const auto now = steady_clock::now();
    if (now >= nextReport_) {
        std::int64_t stored = 0;
        Levels peaks;
        {
            const std::lock_guard lock(mutex_);
            peaks = history_.PeaksOf(reported_, history_.End());
            reported_ = history_.End();
            stored = storedFrames_;
        }
        positions_.Report(stored, peaks);
        nextReport_ = now + milliseconds(interval_.Milliseconds());
    }
    return std::min(std::chrono::ceil<milliseconds>(nextReport_ - now), kCare);
}

}  // namespace mavrin2::devices
