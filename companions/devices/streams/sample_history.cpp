#include "companions/devices/streams/sample_history.h"

#include <algorithm>
#include <cstdlib>

namespace mavrin2::devices {
namespace {

constexpr std::int32_t kFullScale = 32767;

}  // namespace

void Levels::Include(const Levels& other) {
    Left = std::max(Left, other.Left);
    Right = std::max(Right, other.Right);
}

SampleHistory::SampleHistory(std::int32_t channels, std::int64_t frames)
    : channels_(channels),
      capacity_(std::max<std::int64_t>(frames, 1)),
      ring_(static_cast<std::size_t>(capacity_ * channels)) {}

std::int64_t SampleHistory::First() const {
    return std::max<std::int64_t>(end_ - capacity_, 0);
}

void SampleHistory::Append(std::span<const std::int16_t> samples) {
    while (!samples.empty()) {
        const auto at = static_cast<std::size_t>(end_ % capacity_ * channels_);
        const auto part = samples.first(std::min(samples.size(), ring_.size() - at));
        std::copy(part.begin(), part.end(), ring_.begin() + static_cast<std::ptrdiff_t>(at));
        end_ += static_cast<std::int64_t>(part.size()) / channels_;
        samples = samples.subspan(part.size());
    }
}

template <class Use>
void SampleHistory::Visit(std::int64_t first, std::int64_t last, Use use) const {
    first = std::max(first, First());
    last = std::min(last, end_);
    while (first < last) {
        const std::int64_t at = first % capacity_;
        const std::int64_t frames = std::min(last - first, capacity_ - at);
        use(std::span(ring_).subspan(static_cast<std::size_t>(at * channels_),
                                     static_cast<std::size_t>(frames * channels_)));
        first += frames;
    }
}

Levels SampleHistory::PeaksOf(std::int64_t first, std::int64_t last) const {
    std::array<std::int32_t, 2> peaks{};
    Visit(first, last, [&](std::span<const std::int16_t> samples) {
        for (std::size_t i = 0; i < samples.size(); ++i) {
            std::int32_t& peak = peaks[channels_ == 2 ? i % 2 : 0];
            peak = std::max(peak, std::abs(std::int32_t{samples[i]}));
        }
    });
    const std::int32_t left = std::min(peaks[0], kFullScale);
    return {left, channels_ == 2 ? std::min(peaks[1], kFullScale) : left};
}

std::vector<std::int16_t> SampleHistory::Before(std::int64_t last, std::int64_t count) const {
    std::vector<std::int16_t> found;
    Visit(last - std::clamp<std::int64_t>(count, 0, capacity_), last,
          [&](std::span<const std::int16_t> samples) {
              found.insert(found.end(), samples.begin(), samples.end());
          });
    return found;
}

}  // namespace mavrin2::devices
