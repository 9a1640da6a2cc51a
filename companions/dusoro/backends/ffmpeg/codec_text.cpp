#include "companions/dusoro/backends/ffmpeg/codec_text.h"

extern "C" {
#include <libavutil/avstring.h>
}

#include <algorithm>
#include <string_view>

#include "companions/dusoro/sound/format_text.h"

namespace mavrin2::dusoro {
namespace {

struct CodecName {
    AVCodecID Id;
    std::string_view Name;
};

constexpr CodecName kNames[] = {
    {AV_CODEC_ID_MP3, "MP3"},
    {AV_CODEC_ID_MP2, "MP2"},
    {AV_CODEC_ID_MP1, "MP1"},
    {AV_CODEC_ID_AAC, "AAC"},
    {AV_CODEC_ID_VORBIS, "Vorbis"},
    {AV_CODEC_ID_OPUS, "Opus"},
    {AV_CODEC_ID_WMAV1, "WMA"},
    {AV_CODEC_ID_WMAV2, "WMA"},
    {AV_CODEC_ID_WMAPRO, "WMA Pro"},
    {AV_CODEC_ID_WMALOSSLESS, "WMA Lossless"},
    {AV_CODEC_ID_WMAVOICE, "WMA Voice"},
    {AV_CODEC_ID_MUSEPACK7, "MPC"},
    {AV_CODEC_ID_MUSEPACK8, "MPC"},
    {AV_CODEC_ID_AC3, "AC-3"},
    {AV_CODEC_ID_EAC3, "E-AC-3"},
    {AV_CODEC_ID_WAVPACK, "WavPack"},
    {AV_CODEC_ID_PCM_ALAW, "A-law"},
    {AV_CODEC_ID_PCM_MULAW, "u-law"},
};

std::string NameOf(AVCodecID id) {
    const auto* known = std::find_if(std::begin(kNames), std::end(kNames),
                                     [id](const CodecName& one) { return one.Id == id; });
    if (known != std::end(kNames)) return std::string(known->Name);
    std::string name = avcodec_get_name(id);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return name;
}

std::int32_t BitsOf(const AVCodecParameters& parameters) {
    for (const int bits : {parameters.bits_per_raw_sample, parameters.bits_per_coded_sample,
                           av_get_exact_bits_per_sample(parameters.codec_id)})
        if (bits > 0 && bits <= 64) return bits;
    return 16;
}

std::optional<Coding> WrittenCoding(AVCodecID id) {
    switch (id) {
        case AV_CODEC_ID_MP3:
            return Coding::Mp3;
        case AV_CODEC_ID_MP2:
            return Coding::Mp2;
        case AV_CODEC_ID_VORBIS:
            return Coding::Vorbis;
        case AV_CODEC_ID_OPUS:
            return Coding::Opus;
        case AV_CODEC_ID_WMAV1:
        case AV_CODEC_ID_WMAV2:
            return Coding::Wma;
        case AV_CODEC_ID_ADPCM_G726:
            return Coding::G726;
        default:
            return std::nullopt;
    }
}

std::int64_t BitRateOf(const AVFormatContext& context, const AVCodecParameters& parameters) {
    if (parameters.bit_rate > 0) return parameters.bit_rate;
    return context.nb_streams == 1 ? context.bit_rate : 0;
}

}  // namespace

CodingText DescribeCoding(const AVFormatContext& context, const AVStream& stream, std::int32_t rate,
                          std::int32_t channels) {
    const AVCodecParameters& parameters = *stream.codecpar;
    const AVCodecID id = parameters.codec_id;
    const AVCodecDescriptor* descriptor = avcodec_descriptor_get(id);
    const std::string_view plainName = descriptor ? descriptor->name : "";

    CodingText coding;
    coding.Pcm = plainName.starts_with("pcm_s") || plainName.starts_with("pcm_u");
    const bool isFloat = plainName.starts_with("pcm_f");
    const bool lossless =
        descriptor && (descriptor->props & (AV_CODEC_PROP_LOSSLESS | AV_CODEC_PROP_LOSSY)) ==
                          AV_CODEC_PROP_LOSSLESS;
    if (coding.Pcm || isFloat || lossless) {
        coding.Bits = BitsOf(parameters);
        coding.Text = TextWithBits(coding.Pcm ? "PCM"
                                   : isFloat  ? "Float"
                                              : NameOf(id),
                                   rate, coding.Bits, channels);
        return coding;
    }
    const std::int64_t bitRate = BitRateOf(context, parameters);
    if (const auto written = WrittenCoding(id)) {
        coding.Format = OutputFormat{*written, {rate, channels}, BitsOf(parameters)};
        coding.Format->Rates.Nominal =
            static_cast<std::int32_t>(std::clamp<std::int64_t>(bitRate / 1000, 0, 1000));
    }
    const bool ogg = id == AV_CODEC_ID_VORBIS && av_match_name("ogg", context.iformat->name) != 0;
    coding.Text = TextWithBitRate(ogg ? "Ogg Vorbis" : NameOf(id), rate, bitRate, channels);
    return coding;
}

}  // namespace mavrin2::dusoro
