#include "companions/dusoro/backends/ffmpeg/av_encoder.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace mavrin2::dusoro {
namespace {

const char* EncoderName(Coding kind) {
    switch (kind) {
        case Coding::Mp2:
            return "mp2";
        case Coding::Vorbis:
            return "libvorbis";
        case Coding::Wma:
            return "wmav2";
        case Coding::G726:
            return "g726";
        default:
            return "";
    }
}

void SetRates(AVCodecContext& encoder, const OutputFormat& format) {
    if (format.Kind == Coding::G726) {
        encoder.bits_per_coded_sample = format.Bits;
        encoder.bit_rate = std::int64_t{format.Format.Rate} * format.Bits;
        // At other rates than 8000 Hz it is no standard any more.
        encoder.strict_std_compliance = FF_COMPLIANCE_UNOFFICIAL;
        return;
    }
    if (format.Quality) {
        encoder.flags |= AV_CODEC_FLAG_QSCALE;
        encoder.global_quality = *format.Quality * FF_QP2LAMBDA;
        return;
    }
    constexpr std::int64_t kKilo = 1000;
    const auto [nominal, least, most] = format.Rates;
    encoder.bit_rate = nominal * kKilo;
    encoder.rc_min_rate = least * kKilo;
    encoder.rc_max_rate = most * kKilo;
    // libvorbis chooses the mean itself when it has limits only.
    if (nominal == 0 && format.Kind == Coding::Vorbis && (least > 0 || most > 0))
        encoder.bit_rate = kKilo * (least > 0 && most > 0 ? (least + most) / 2
                                    : least > 0           ? least
                                                          : most);
}

}  // namespace

AvCodecContextPtr OpenEncoder(const OutputFormat& format, bool headerApart) {
    const AVCodec* codec = avcodec_find_encoder_by_name(EncoderName(format.Kind));
    AvCodecContextPtr encoder(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!encoder) return nullptr;
    encoder->sample_rate = format.Format.Rate;
    av_channel_layout_default(&encoder->ch_layout, format.Format.Channels);
    encoder->sample_fmt = codec->sample_fmts[0];
    encoder->time_base = {1, format.Format.Rate};
    encoder->thread_count = 1;
    if (headerApart) encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    SetRates(*encoder, format);
    if (avcodec_open2(encoder.get(), codec, nullptr) < 0) return nullptr;
    return encoder;
}

namespace {

// The quality whose mean bit rate is the nearest, at 44100 Hz.
std::int32_t QualityFor(const OutputFormat& format) {
    constexpr std::array kStereoRates = {64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 500};
    const auto [nominal, least, most] = format.Rates;
    const std::int32_t rate =
        (nominal > 0 ? nominal : std::max(least, most)) * 2 / format.Format.Channels;
    const auto* nearest = std::ranges::min_element(
        kStereoRates, {}, [rate](std::int32_t one) { return std::abs(one - rate); });
    return static_cast<std::int32_t>(nearest - kStereoRates.begin());
}

}  // namespace

// What libvorbis takes depends on rate and channels in a way that it does not tell.
AvCodecContextPtr OpenNearestEncoder(OutputFormat& format, bool headerApart) {
    // Above, it has qualities only.
    constexpr std::int32_t kHighestWithBitRates = 50000;
    if (format.Kind == Coding::Vorbis && format.Format.Rate > kHighestWithBitRates)
        format.Quality = QualityFor(format);
    constexpr std::int32_t kFurthest = 1000;
    const BitRates wanted = format.Rates;
    if (auto encoder = OpenEncoder(format, headerApart)) return encoder;
    const std::int32_t middle =
        std::clamp(std::max({wanted.Nominal, wanted.Least, wanted.Most}), 1, kFurthest);
    for (std::int32_t distance = 0; distance <= kFurthest; ++distance) {
        for (const std::int32_t rate : {middle - distance, middle + distance}) {
            if (rate < 1 || rate > kFurthest) continue;
            format.Rates = {rate, std::min(wanted.Least, rate),
                            wanted.Most > 0 ? std::max(wanted.Most, rate) : 0};
            if (auto encoder = OpenEncoder(format, headerApart)) return encoder;
        }
    }
    return nullptr;
}

}  // namespace mavrin2::dusoro
