#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "control/signal/filter.h"
#include "control/signal/pcm_format.h"
#include "control/signal/resampler.h"

namespace mavrin2::signal {

// Converts rate, channels and bits of a stream of sound, block by block:
//
//     CPcmConvert convert;
//     convert.SetInput(8000, 1, 16);
//     convert.SetOutput(44100, 2, 16);
//     convert.Init();
//     for each block:
//         const auto done = convert.Convert(block, converted);
//         convert.UpdateFilterHistory(done.Produced);
//
// A higher rate is reached by linear interpolation and a low-pass per channel, a lower one by
// interpolation alone. Phase, last samples and filters carry over from block to block. Memory for a
// block is kept for the next one; std::bad_alloc leaves the converter to be initialised again.
class CPcmConvert {
public:
    struct Result {
        std::size_t Consumed = 0;  // bytes of whole input frames
        std::size_t Produced = 0;  // bytes of whole output frames
    };

    // Both formats are 44100 Hz, stereo, 16 bits, and initialised.
    CPcmConvert();

    // More than 2 channels become 2; bits are limited to 8 … 16. Formats take effect with Init().
    void SetInput(std::int32_t rate, std::int32_t channels, std::int32_t bits);
    void SetOutput(std::int32_t rate, std::int32_t channels, std::int32_t bits);
    // Begins a stream. Designs the filters when the rate rises from 6001 Hz or more; without a
    // design, conversion is not filtered.
    void Init();

    // Converts the whole frames of `in`. Equal formats are copied byte by byte. Nothing is consumed
    // where a rate or channel count is below 1, or where the formats differ and a width is neither
    // 8 nor 16 bits. Throws std::length_error when `out` is too small or `in` is above 2 GiB.
    Result Convert(std::span<const std::byte> in, std::span<std::byte> out);
    // Bytes that suffice for the output of one block, whatever came before it.
    std::size_t OutputCapacityFor(std::size_t inBytes) const;

    // Makes the unfiltered signal of the block just converted, of which `outBytes` were used, the
    // past of the next block. Without it each block is filtered as if silence came before.
    void UpdateFilterHistory(std::size_t outBytes);

    // Of the stream so far, those that the filter made too loud.
    std::int64_t LimitedSamples() const { return limited_; }

    bool Changes() const { return input_ != output_; }
    bool FilterEnabled() const { return filterEnabled_; }
    const PcmFormat& InputFormat() const { return input_; }
    const PcmFormat& OutputFormat() const { return output_; }
    const CFilter& Filter(std::size_t channel) const { return filters_[channel]; }

private:
    // One vector per channel; the second is not used for mono sound.
    using Channels = std::array<std::vector<std::int16_t>, 2>;

    std::size_t ChannelCount() const { return static_cast<std::size_t>(output_.Channels); }
    bool ChangesRate() const { return input_.Rate != output_.Rate; }
    bool NeedsFilter() const;
    bool IsConvertible() const;
    bool IsShortBlock(std::size_t inputFrames, std::size_t outputFrames) const;
    void ReadChannels(std::span<const std::byte> in, std::size_t frames);
    Channels& ChangeRate(std::size_t silence);
    void WriteFrames(const Channels& channels, std::size_t from, std::span<std::byte> out) const;

    PcmFormat input_, output_;
    bool firstBlock_ = true;
    bool filterEnabled_ = true;
    std::array<CFilter, 2> filters_;
    Resampler resampler_;
    std::int64_t limited_ = 0;
    Channels samples_;    // of the block, after a place for the sample before it
    Channels resampled_;  // not filtered
    Channels filtered_;
};

}  // namespace mavrin2::signal
