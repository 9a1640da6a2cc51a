#include "control/signal/resampler.h"

#include <algorithm>

#include "control/signal/kernels.h"

namespace mavrin2::signal {
namespace {

// `samples` begins with the one before the block. A value halfway up is on the line from the
// earlier neighbour.
void Interpolate(std::span<const std::int16_t> samples, const Kernels::Places& places,
                 double inputRate, std::span<std::int16_t> results) {
    for (std::size_t i = 0; i < results.size(); ++i) {
        const std::int16_t* pair = samples.data() + places.Index[i];
        const std::int32_t earlier = pair[0];
        const std::int32_t later = pair[1];
        const double y = earlier + places.Elapsed[i] * (later - earlier) * inputRate;
        results[i] = static_cast<std::int16_t>(std::clamp(y, -32767.0, 32767.0));
    }
}

// Continues a channel from `known` values on: a parabola through the three before.
void Extrapolate(std::span<std::int16_t> channel, std::size_t known) {
    const auto before = [&](std::size_t i, std::size_t distance) {
        return i < distance ? 0 : std::int32_t{channel[i - distance]};
    };
    for (std::size_t i = known; i < channel.size(); ++i) {
        const std::int32_t next = before(i, 3) - 3 * before(i, 2) + 3 * before(i, 1);
        channel[i] = static_cast<std::int16_t>(std::clamp(next, -32767, 32767));
    }
}

}  // namespace

void Resampler::Start(std::int32_t inputRate, std::int32_t outputRate) {
    inputRate_ = inputRate;
    outputRate_ = outputRate;
    phase_ = 0;
    previous_ = {};
}

double Resampler::TimeOfLast(std::size_t frames) const {
    return static_cast<double>(FollowsBlock() ? frames : frames - 1) / inputRate_;
}

std::size_t Resampler::FramesDue(std::size_t frames) const {
    const auto last = static_cast<std::int64_t>((TimeOfLast(frames) - phase_) * outputRate_);
    return static_cast<std::size_t>(std::max<std::int64_t>(last + 1, 0));
}

void Resampler::Resample(std::span<std::vector<std::int16_t>> blocks,
                         std::span<std::vector<std::int16_t>> resampled) {
    const std::size_t frames = blocks.front().size() - 1;
    const std::size_t due = FramesDue(frames);
    for (std::size_t channel = 0; channel < blocks.size(); ++channel) {
        resampled[channel].resize(due);
        blocks[channel].front() = previous_[channel];
    }

    const TimeGrid grid{inputRate_, outputRate_, phase_, FollowsBlock() ? 1.0 : 0.0};
    const auto end = static_cast<double>(frames) + grid.Oldest;
    const auto isWithin = [&](std::size_t output) {
        return grid.IndexAt(grid.TimeOfOutput(static_cast<double>(output))) < end;
    };
    // Rounding may put the last one after the block.
    std::size_t within = due;
    while (within > 0 && !isWithin(within - 1))
        --within;

    const Kernels& kernels = BestKernels();
    Kernels::Places places;
    for (std::size_t done = 0; done < within; done += Kernels::Chunk) {
        const std::size_t count = std::min(Kernels::Chunk, within - done);
        kernels.Locate(grid, static_cast<std::int64_t>(done), places);
        for (std::size_t channel = 0; channel < blocks.size(); ++channel)
            Interpolate(blocks[channel], places, inputRate_,
                        std::span(resampled[channel]).subspan(done, count));
    }
    for (std::size_t channel = 0; channel < blocks.size(); ++channel) {
        Extrapolate(resampled[channel], within);
        previous_[channel] = blocks[channel].back();
    }
    phase_ = static_cast<double>(due) / outputRate_ - TimeOfLast(frames) + phase_;
}

}  // namespace mavrin2::signal
