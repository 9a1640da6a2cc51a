#include "control/signal/pcm_convert.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "control/signal/mul_div.h"

namespace mavrin2::signal {
namespace {

// Below this rate interpolation is not filtered.
constexpr std::int32_t kLowestFilteredRate = 6001;

PcmFormat LimitedFormat(std::int32_t rate, std::int32_t channels, std::int32_t bits) {
    return {rate, std::min(channels, 2), std::clamp(bits, 8, 16)};
}

bool HasSoundWidth(const PcmFormat& format) {
    return format.Bits == 8 || format.Bits == 16;
}

std::int16_t Load16(const std::byte* bytes, std::size_t index) {
    std::int16_t value;
    std::memcpy(&value, bytes + index * sizeof value, sizeof value);
    return value;
}

// Reads interleaved values through load(index) into channels[…][from], [from + 1] …
template <class Load>
void Split(Load load, std::size_t frames, std::int32_t inputChannels,
           std::span<std::vector<std::int16_t>> channels, std::size_t from) {
    std::int16_t* left = channels[0].data() + from;
    if (inputChannels == 1) {
        for (std::size_t i = 0; i < frames; ++i)
            left[i] = load(i);
        if (channels.size() == 2) std::copy_n(left, frames, channels[1].data() + from);
    } else if (channels.size() == 1) {
        for (std::size_t i = 0; i < frames; ++i)
            left[i] = static_cast<std::int16_t>((load(2 * i) + load(2 * i + 1)) / 2);
    } else {
        std::int16_t* right = channels[1].data() + from;
        for (std::size_t i = 0; i < frames; ++i) {
            left[i] = load(2 * i);
            right[i] = load(2 * i + 1);
        }
    }
}

// Writes channels[…][from], [from + 1] … interleaved through store(index, value).
template <class Store>
void Join(std::span<const std::vector<std::int16_t>> channels, std::size_t from, Store store) {
    const std::size_t frames = channels[0].size() - from;
    const std::int16_t* left = channels[0].data() + from;
    if (channels.size() == 1) {
        for (std::size_t i = 0; i < frames; ++i)
            store(i, left[i]);
    } else {
        const std::int16_t* right = channels[1].data() + from;
        for (std::size_t i = 0; i < frames; ++i) {
            store(2 * i, left[i]);
            store(2 * i + 1, right[i]);
        }
    }
}

}  // namespace

CPcmConvert::CPcmConvert() {
    Init();
}

void CPcmConvert::SetInput(std::int32_t rate, std::int32_t channels, std::int32_t bits) {
    input_ = LimitedFormat(rate, channels, bits);
}

void CPcmConvert::SetOutput(std::int32_t rate, std::int32_t channels, std::int32_t bits) {
    output_ = LimitedFormat(rate, channels, bits);
}

void CPcmConvert::Init() {
    firstBlock_ = true;
    limited_ = 0;
    filterEnabled_ = true;
    resampler_.Start(input_.Rate, output_.Rate);
    if (!NeedsFilter()) return;
    const double rise = static_cast<double>(output_.Rate) / input_.Rate;
    const auto wholeRise = static_cast<std::int16_t>(std::lround(rise));
    try {
        filters_[0].Design(input_.Rate / 2.0, output_.Rate, 5 * std::max(1.0, wholeRise / 2.0));
        filters_[1] = filters_[0];
    } catch (const std::domain_error&) {
        filterEnabled_ = false;
    }
}

bool CPcmConvert::NeedsFilter() const {
    return filterEnabled_ && output_.Rate > input_.Rate && input_.Rate >= kLowestFilteredRate;
}

bool CPcmConvert::IsConvertible() const {
    return input_.Rate > 0 && output_.Rate > 0 && input_.Channels > 0 && output_.Channels > 0 &&
           HasSoundWidth(input_) && HasSoundWidth(output_);
}

CPcmConvert::Result CPcmConvert::Convert(std::span<const std::byte> in, std::span<std::byte> out) {
    constexpr std::size_t largest = std::numeric_limits<std::int32_t>::max();
    if (in.size() > largest) throw std::length_error("the block to convert is above 2 GiB");
    if (!Changes()) {
        if (out.size() < in.size()) throw std::length_error("no room for the converted block");
        std::ranges::copy(in, out.begin());
        return {in.size(), in.size()};
    }
    if (!IsConvertible()) return {};
    const auto inputFrame = static_cast<std::size_t>(input_.BlockAlignment());
    const auto outputFrame = static_cast<std::size_t>(output_.BlockAlignment());
    const std::size_t frames = in.size() / inputFrame;
    if (frames == 0) return {};

    const std::size_t due = ChangesRate() ? resampler_.FramesDue(frames) : frames;
    const std::size_t silence = IsShortBlock(frames, due) ? 1 : 0;
    const std::size_t produced = (silence + due) * outputFrame;
    if (out.size() < produced) throw std::length_error("no room for the converted block");

    ReadChannels(in, frames);
    if (ChangesRate())
        WriteFrames(ChangeRate(silence), 0, out);
    else
        WriteFrames(samples_, 1, out);
    firstBlock_ = false;
    return {frames * inputFrame, produced};
}

// Whether a first block gives less than its share of samples, which one of silence makes up for.
bool CPcmConvert::IsShortBlock(std::size_t inputFrames, std::size_t outputFrames) const {
    if (!firstBlock_ || !ChangesRate()) return false;
    const auto values = static_cast<std::int32_t>(inputFrames * ChannelCount());
    return static_cast<std::int64_t>(outputFrames) <
           MulDiv(output_.Rate, values, input_.Rate) / output_.Channels;
}

void CPcmConvert::ReadChannels(std::span<const std::byte> in, std::size_t frames) {
    const auto channels = std::span(samples_).first(ChannelCount());
    for (auto& channel : channels)
        channel.resize(frames + 1);
    const std::byte* bytes = in.data();
    if (input_.Bits == 16)
        Split([bytes](std::size_t i) { return Load16(bytes, i); }, frames, input_.Channels,
              channels, 1);
    else if (output_.Bits == 16)
        Split(
            [bytes](std::size_t i) {
                return static_cast<std::int16_t>((std::to_integer<int>(bytes[i]) - 128) * 256);
            },
            frames, input_.Channels, channels, 1);
    else
        Split([bytes](std::size_t i) { return std::to_integer<std::int16_t>(bytes[i]); }, frames,
              input_.Channels, channels, 1);
}

CPcmConvert::Channels& CPcmConvert::ChangeRate(std::size_t silence) {
    const std::size_t channels = ChannelCount();
    resampler_.Resample(std::span(samples_).first(channels), std::span(resampled_).first(channels));
    Channels& changed = NeedsFilter() ? filtered_ : resampled_;
    for (std::size_t channel = 0; channel < channels; ++channel) {
        if (NeedsFilter()) {
            const std::span<const std::int16_t> unfiltered = resampled_[channel];
            filtered_[channel].resize(unfiltered.size());
            limited_ += static_cast<std::int64_t>(
                filters_[channel].Process(unfiltered, filtered_[channel]));
        }
        changed[channel].insert(changed[channel].begin(), silence, 0);
    }
    return changed;
}

void CPcmConvert::WriteFrames(const Channels& channels, std::size_t from,
                              std::span<std::byte> out) const {
    const auto used = std::span(channels).first(ChannelCount());
    std::byte* bytes = out.data();
    if (output_.Bits == 16)
        Join(used, from, [bytes](std::size_t i, std::int16_t value) {
            std::memcpy(bytes + i * sizeof value, &value, sizeof value);
        });
    else if (input_.Bits == 16)
        Join(used, from, [bytes](std::size_t i, std::int16_t value) {
            bytes[i] = static_cast<std::byte>(value / 256 + 128);
        });
    else
        Join(used, from, [bytes](std::size_t i, std::int16_t value) {
            bytes[i] = static_cast<std::byte>(std::clamp<std::int16_t>(value, 0, 255));
        });
}

std::size_t CPcmConvert::OutputCapacityFor(std::size_t inBytes) const {
    if (!Changes()) return inBytes;
    if (!IsConvertible()) return 0;
    const std::size_t frames = inBytes / static_cast<std::size_t>(input_.BlockAlignment());
    // One for a remainder, one for the time since the last block, one for rounding, one of silence.
    const std::size_t most =
        ChangesRate()
            ? static_cast<std::size_t>(static_cast<double>(frames) * output_.Rate / input_.Rate) + 4
            : frames;
    return most * static_cast<std::size_t>(output_.BlockAlignment());
}

void CPcmConvert::UpdateFilterHistory(std::size_t outBytes) {
    if (!ChangesRate() || !NeedsFilter() || !IsConvertible()) return;
    const auto frame = static_cast<std::size_t>(output_.BlockAlignment());
    // Taken for bytes of 16-bit samples, so that 8-bit output continues from the block's middle.
    const std::size_t bytes = frame * (outBytes / frame) / ChannelCount();
    for (std::size_t channel = 0; channel < ChannelCount(); ++channel) {
        const std::span<const std::int16_t> unfiltered = resampled_[channel];
        filters_[channel].KeepHistory(
            unfiltered.first(std::min(bytes / sizeof(std::int16_t), unfiltered.size())));
    }
}

}  // namespace mavrin2::signal
