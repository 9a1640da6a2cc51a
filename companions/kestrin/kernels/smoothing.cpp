#include "companions/kestrin/kernels/smoothing.h"

#include <algorithm>

#include "companions/kestrin/kernels/sample_conversion.h"

namespace mavrin2::kestrin {
namespace {

// How much of the processed sound frame `index` takes of a crossfade of `frames`: from just above
// 0 to just below 1, since the neighbours of the crossfade are pure.
float Share(std::size_t index, std::size_t frames) {
    return static_cast<float>(index + 1) / static_cast<float>(frames + 1);
}

std::int16_t Mixed(std::int16_t original, std::int16_t processed, float share) {
    const auto from = static_cast<float>(original);
    return ToSample((from + (static_cast<float>(processed) - from) * share) * (1 / kFullScale));
}

}  // namespace

Smoothing::Smoothing(const SmoothingSettings& settings, std::int32_t rate, std::size_t channels,
                     std::span<const std::int16_t> original)
    : channels_(channels) {
    const std::int64_t wanted =
        std::max<std::int64_t>(0, std::int64_t{settings.Milliseconds} * rate / 1000);
    const std::size_t half = original.size() / channels / 2;
    const std::size_t count =
        channels *
        (static_cast<std::uint64_t>(wanted) < half ? static_cast<std::size_t>(wanted) : half);
    const auto first = original.first(count);
    const auto last = original.last(count);
    if (settings.Start) start_.assign(first.begin(), first.end());
    if (settings.End) end_.assign(last.begin(), last.end());
}

void Smoothing::Apply(std::span<std::int16_t> processed) const {
    const std::size_t half = processed.size() / channels_ / 2;
    const std::size_t atStart = std::min(half, start_.size() / channels_);
    for (std::size_t i = 0; i < atStart * channels_; ++i)
        processed[i] = Mixed(start_[i], processed[i], Share(i / channels_, atStart));

    const std::size_t atEnd = std::min(half, end_.size() / channels_);
    for (std::size_t i = 0; i < atEnd * channels_; ++i) {
        std::int16_t& value = processed[processed.size() - 1 - i];
        value = Mixed(end_[end_.size() - 1 - i], value, Share(i / channels_, atEnd));
    }
}

}  // namespace mavrin2::kestrin
