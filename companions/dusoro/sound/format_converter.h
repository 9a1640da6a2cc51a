#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "companions/dusoro/sound/backend.h"
#include "companions/dusoro/sound/pcm_format.h"

namespace mavrin2::dusoro {

// `frames` at one rate as frames at another, to the nearest.
std::int64_t FramesAtRate(std::int64_t frames, std::int32_t from, std::int32_t to);

// Turns blocks of one format into blocks of another. Mono becomes two equal channels, stereo the
// mean of both; the resampling in between is done with as few channels as possible.
class FormatConverter {
public:
    // Null when the resampler's library is missing or refuses, and when one rate is more than
    // kHighestRatio times the other.
    static std::unique_ptr<FormatConverter> Make(const ResamplerMaker* resamplers, PcmFormat from,
                                                 PcmFormat to);

    // How many frames to push at once, so that what comes out stays within some hundred kilobytes.
    std::size_t BlockFrames() const;

    // What `in` (a whole number of frames) has led to so far. Valid until the next call.
    std::span<const std::int16_t> Push(std::span<const std::int16_t> in);

    // The rest, after which FramesAtRate(all frames in) have come out. Called once.
    std::span<const std::int16_t> Finish();

    // Samples that were limited to full scale so far.
    std::int64_t LimitedSamples() const { return resampler_ ? resampler_->LimitedSamples() : 0; }

private:
    FormatConverter(PcmFormat from, PcmFormat to, std::unique_ptr<Resampler> resampler)
        : from_(from), to_(to), resampler_(std::move(resampler)) {}

    std::size_t InnerChannels() const { return std::min(from_.Channels, to_.Channels); }
    std::span<const std::int16_t> Narrow(std::span<const std::int16_t> in);
    std::span<const std::int16_t> Widen(std::span<const std::int16_t> in);
    void Resample(std::span<const std::int16_t> in);

    PcmFormat from_;
    PcmFormat to_;
    std::unique_ptr<Resampler> resampler_;  // null when the rates are equal
    std::int64_t framesIn_ = 0;
    std::int64_t framesOut_ = 0;
    std::vector<std::int16_t> narrowed_, resampled_, widened_;
};

}  // namespace mavrin2::dusoro
