#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace mavrin2::signal {

// Linear interpolation of a stream of one or two channels at another rate, block by block. Time is
// counted in seconds from the last sample of the previous block; in the first block, from its first
// sample.
class Resampler {
public:
    // Begins a stream. Rates are above 0.
    void Start(std::int32_t inputRate, std::int32_t outputRate);

    // Frames that the next block of `frames` frames (at least 1) will give; may be 0.
    std::size_t FramesDue(std::size_t frames) const;

    // Resamples one block. blocks[channel] holds a free place, used for the sample before the
    // block, and then the channel's samples; resampled[channel] is resized to the frames due.
    // Results are truncated toward zero and stay within ±32767.
    void Resample(std::span<std::vector<std::int16_t>> blocks,
                  std::span<std::vector<std::int16_t>> resampled);

private:
    bool FollowsBlock() const { return phase_ != 0; }
    double TimeOfLast(std::size_t frames) const;

    double inputRate_ = 0;
    double outputRate_ = 0;
    double phase_ = 0;  // time of the next output sample
    std::array<std::int16_t, 2> previous_{};
};

}  // namespace mavrin2::signal
