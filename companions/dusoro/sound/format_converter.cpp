#include "companions/dusoro/sound/format_converter.h"

#include "companions/dusoro/sound/sample_rounding.h"

namespace mavrin2::dusoro {

std::int64_t FramesAtRate(std::int64_t frames, std::int32_t from, std::int32_t to) {
    const std::int64_t whole = frames / from;
    const std::int64_t rest = frames % from;
    return whole * to + (rest * to * 2 + from) / (std::int64_t{2} * from);
}

std::unique_ptr<FormatConverter> FormatConverter::Make(const ResamplerMaker* resamplers,
                                                       PcmFormat from, PcmFormat to) {
    std::unique_ptr<Resampler> resampler;
    if (from.Rate != to.Rate) {
        if (from.Rate / kHighestRatio > to.Rate || to.Rate / kHighestRatio > from.Rate)
            return nullptr;
        if (resamplers)
            resampler = resamplers->Make(from.Rate, to.Rate, std::min(from.Channels, to.Channels));
        if (!resampler) return nullptr;
    }
    return std::unique_ptr<FormatConverter>(new FormatConverter(from, to, std::move(resampler)));
}

std::size_t FormatConverter::BlockFrames() const {
    constexpr std::int64_t kFrames = 16384;
    return static_cast<std::size_t>(
        std::clamp<std::int64_t>(kFrames * 2 * from_.Rate / to_.Rate, 1, kFrames));
}

std::span<const std::int16_t> FormatConverter::Push(std::span<const std::int16_t> in) {
    framesIn_ += static_cast<std::int64_t>(in.size()) / from_.Channels;
    const auto narrow = Narrow(in);
    if (!resampler_) return Widen(narrow);
    resampled_.clear();
    Resample(narrow);
    framesOut_ += static_cast<std::int64_t>(resampled_.size() / InnerChannels());
    return Widen(resampled_);
}

std::span<const std::int16_t> FormatConverter::Finish() {
    if (!resampler_) return {};
    const std::int64_t due =
        std::max<std::int64_t>(0, FramesAtRate(framesIn_, from_.Rate, to_.Rate) - framesOut_);
    // Silence where the resampler's own idea of the end comes a frame earlier.
    resampled_.assign(static_cast<std::size_t>(due) * InnerChannels(), 0);
    std::span<std::int16_t> open = resampled_;
    while (!open.empty()) {
        const std::size_t got = resampler_->Flush(open);
        if (got == 0) break;
        open = open.subspan(got * InnerChannels());
    }
    return Widen(resampled_);
}

std::span<const std::int16_t> FormatConverter::Narrow(std::span<const std::int16_t> in) {
    if (from_.Channels <= to_.Channels) return in;
    narrowed_.resize(in.size() / 2);
    for (std::size_t i = 0; i < narrowed_.size(); ++i)
        narrowed_[i] = MeanOf(in[2 * i], in[2 * i + 1]);
    return narrowed_;
}

std::span<const std::int16_t> FormatConverter::Widen(std::span<const std::int16_t> in) {
    if (from_.Channels >= to_.Channels) return in;
    widened_.resize(in.size() * 2);
    for (std::size_t i = 0; i < in.size(); ++i)
        widened_[2 * i] = widened_[2 * i + 1] = in[i];
    return widened_;
}

void FormatConverter::Resample(std::span<const std::int16_t> in) {
    const std::size_t channels = InnerChannels();
    std::size_t filled = 0;
    while (!in.empty()) {
        const auto expected = static_cast<std::size_t>(
            FramesAtRate(static_cast<std::int64_t>(in.size() / channels), from_.Rate, to_.Rate));
        resampled_.resize(filled + (expected + 16) * channels);
        const auto progress = resampler_->Process(in, std::span(resampled_).subspan(filled));
        filled += progress.Delivered * channels;
        in = in.subspan(progress.Consumed * channels);
        if (progress.Consumed == 0 && progress.Delivered == 0) break;
    }
    resampled_.resize(filled);
}

}  // namespace mavrin2::dusoro
