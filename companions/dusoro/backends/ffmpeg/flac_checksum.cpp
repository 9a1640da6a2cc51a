#include "companions/dusoro/backends/ffmpeg/flac_checksum.h"

#include <algorithm>

namespace mavrin2::dusoro {

std::optional<FlacChecksum> FlacChecksum::Of(const AVCodecParameters& parameters) {
    constexpr int kDescription = 34;
    constexpr int kSum = 18;
    if (parameters.codec_id != AV_CODEC_ID_FLAC || parameters.extradata_size < kDescription)
        return std::nullopt;
    const std::uint8_t* description = parameters.extradata;
    FlacChecksum checksum;
    std::copy_n(description + kSum, checksum.expected_.size(), checksum.expected_.begin());
    checksum.bits_ = ((description[12] & 1) << 4 | description[13] >> 4) + 1;
    checksum.state_.reset(av_md5_alloc());
    if (!checksum.state_ || checksum.expected_ == Sum{}) return std::nullopt;
    av_md5_init(checksum.state_.get());
    return checksum;
}

void FlacChecksum::Add(const AVFrame& frame) {
    switch (frame.format) {
        case AV_SAMPLE_FMT_S16:
            return AddAs<std::int16_t>(frame, false);
        case AV_SAMPLE_FMT_S16P:
            return AddAs<std::int16_t>(frame, true);
        case AV_SAMPLE_FMT_S32:
            return AddAs<std::int32_t>(frame, false);
        case AV_SAMPLE_FMT_S32P:
            return AddAs<std::int32_t>(frame, true);
        default:
            return;
    }
}

// The sum is that of the samples as they were encoded: interleaved, in as few whole bytes as hold
// them, the lowest first. The decoder has moved them up to full scale.
template <class Sample>
void FlacChecksum::AddAs(const AVFrame& frame, bool planar) {
    const auto channels = static_cast<std::size_t>(frame.ch_layout.nb_channels);
    const auto frames = static_cast<std::size_t>(frame.nb_samples);
    const int width = (bits_ + 7) / 8;
    const int shift = std::max(static_cast<int>(sizeof(Sample)) * 8 - bits_, 0);
    bytes_.clear();
    for (std::size_t i = 0; i < frames; ++i) {
        for (std::size_t channel = 0; channel < channels; ++channel) {
            const auto* samples =
                reinterpret_cast<const Sample*>(frame.extended_data[planar ? channel : 0]);
            std::int32_t value = samples[planar ? i : i * channels + channel] >> shift;
            for (int byte = 0; byte < width; ++byte, value >>= 8)
                bytes_.push_back(static_cast<std::uint8_t>(value));
        }
    }
    av_md5_update(state_.get(), bytes_.data(), bytes_.size());
}

bool FlacChecksum::Differs() {
    Sum sum{};
    av_md5_final(state_.get(), sum.data());
    return sum != expected_;
}

}  // namespace mavrin2::dusoro
