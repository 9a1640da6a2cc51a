#include "companions/devices/streams/player.h"

#include <algorithm>

namespace mavrin2::devices {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// What is kept for the live picture, and what may be on its way to the device beside that.
constexpr std::int64_t kHistorySeconds = 2;
constexpr milliseconds kUsualBuffer{500};
// A stream is looked after this often, and near its end so that this is noticed soon.
constexpr milliseconds kCare{40};
constexpr milliseconds kCareAtEnd{5};

std::int64_t HistoryFrames(const StreamRequest& request) {
    return request.Sound.Rate * kHistorySeconds +
           request.Sound.Rate * (kUsualBuffer + request.ExtraLatency).count() / 1000;
}

}  // namespace

PlaybackRun::PlaybackRun(SoundServer* server, const StreamRequest& request, Deadline deadline,
                         const TimerInterval& interval, PlayerEvents& events)
    : posting_(platform::PostingQueue::OfThisThread()->BeginRun()),
      post_(posting_->Poster()),
      format_(request.Sound),
      interval_(interval),
      queue_(std::make_shared<PlayQueue>(request.Sound, HistoryFrames(request),
                                         [this, &events] {
                                             post_([queue = queue_, &events] {
                                                 events.OnBlockDone();
                                                 queue->Answered();
                                             });
                                         })),
      positions_(post_, [&events](std::int64_t frames, Levels levels) {
          events.OnPlayed(frames, levels);
      }) {
    if (server) stream_ = server->Play(request, *queue_, deadline);
    if (!stream_) {
        PostEnd(events);
        return;
    }
    // When this arrives the host has had its chance to queue something.
    post_([queue = queue_] { queue->Answered(); });
    nextReport_ = steady_clock::now() + milliseconds(interval_.Milliseconds());
    ticker_.emplace([this, &events] { return Watch(events); });
}

PlaybackRun::~PlaybackRun() {
    ticker_.reset();
    stream_.reset();
}

void PlaybackRun::PostEnd(PlayerEvents& events) {
    ended_ = true;
    post_([&events] { events.OnEndOfData(); });
}

void PlaybackRun::Queue(std::vector<std::int16_t> block) {
    if (ended_) return;
    queue_->Add(std::move(block));
    stream_->Supply();
}

std::vector<std::int16_t> PlaybackRun::Recent(std::int64_t count) {
    return stream_ ? queue_->Before(stream_->Observe().Heard, count) : std::vector<std::int16_t>();
}

std::optional<milliseconds> PlaybackRun::Watch(PlayerEvents& events) {
    const bool complete = queue_->IsComplete();
    if (complete && !complete_) stream_->Finish();
    complete_ = complete;
    const StreamProgress progress = stream_->Observe();
    const bool finished = progress.Lost || (complete_ && progress.Heard >= queue_->Taken());
    const auto now = steady_clock::now();
    if (finished || now >= nextReport_) {
        positions_.Report(progress.Heard, queue_->PeaksOf(reported_, progress.Heard));
        reported_ = progress.Heard;
        nextReport_ = now + milliseconds(interval_.Milliseconds());
    }
    if (finished) {
        PostEnd(events);
        return std::nullopt;
    }
    const auto wait = std::chrono::ceil<milliseconds>(nextReport_ - now);
    return std::min(wait, queue_->IsEmpty() ? kCareAtEnd : kCare);
}

}  // namespace mavrin2::devices
