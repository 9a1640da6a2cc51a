#include "companions/dusoro/sound/output_format.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>

#include "companions/dusoro/sound/format_text.h"

namespace mavrin2::dusoro {
namespace {

using enum Container;
using enum EncoderKind;

constexpr std::int32_t kMpegRates[] = {8000,  11025, 12000, 16000, 22050,
                                       24000, 32000, 44100, 48000};
constexpr std::int32_t kOpusRates[] = {48000};
constexpr std::int32_t kWmaRates[] = {8000, 11025, 16000, 22050, 32000, 44100, 48000};
constexpr std::int32_t kPcmBits[] = {8, 16, 24, 32};
constexpr std::int32_t kG723Bits[] = {3, 5};
constexpr std::int32_t kG726Bits[] = {2, 3, 4, 5};
constexpr std::int32_t kFourBits[] = {4};
constexpr std::int32_t kEightBits[] = {8};
constexpr std::int32_t kSixteenBits[] = {16};

// A coding and the files that it is written to.
struct Row {
    const char* Name;
    std::string_view Extensions;          // separated by spaces
    std::span<const std::int32_t> Rates;  // in hertz; if empty, all in the following range
    std::span<const std::int32_t> Bits;   // the first by default; shown unless empty
    std::int32_t LowestRate;
    std::int32_t HighestRate;
    std::int32_t MostChannels;
    Coding Kind;
    EncoderKind Encoder;
    Container Usual;
};

constexpr std::span kMpeg2Rates = std::span(kMpegRates).subspan(3);

constexpr Row kRows[] = {
    {"PCM", "wav aif aiff au snd", {}, kPcmBits, 1, kHighestRate, 2, Coding::Pcm, Sndfile, Wav},
    {"A-law", "wav au snd", {}, kEightBits, 1, kHighestRate, 2, Coding::ALaw, Sndfile, Wav},
    {"u-law", "wav au snd", {}, kEightBits, 1, kHighestRate, 2, Coding::MuLaw, Sndfile, Wav},
    {"MS ADPCM", "wav", {}, kFourBits, 1, kHighestRate, 2, Coding::MsAdpcm, Sndfile, Wav},
    {"IMA ADPCM", "wav", {}, kFourBits, 1, kHighestRate, 2, Coding::ImaAdpcm, Sndfile, Wav},
    {"GSM 6.10", "wav", {}, {}, 1, kHighestRate, 1, Coding::Gsm, Sndfile, Wav},
    {"VOX ADPCM", "vox", {}, kFourBits, 1, kHighestRate, 1, Coding::Vox, Sndfile, Raw},
    {"DSP", "wav", {}, {}, 8000, 8000, 1, Coding::Dsp, None, Wav},
    {"MP2", "mp2", kMpeg2Rates, {}, 1, kHighestRate, 2, Coding::Mp2, Ffmpeg, Mpeg},
    {"MP3", "mp3", kMpegRates, {}, 1, kHighestRate, 2, Coding::Mp3, Lame, Mpeg},
    {"Ogg Vorbis", "ogg oga", {}, {}, 8000, 192000, 2, Coding::Vorbis, Sndfile, Ogg},
    // Every decoder delivers this rate, whatever was encoded: so markers stay in place.
    {"Opus", "opus", kOpusRates, {}, 1, kHighestRate, 2, Coding::Opus, Sndfile, Ogg},
    {"FLAC", "flac", {}, kSixteenBits, 1, 655350, 2, Coding::Flac, Sndfile, Flac},
    {"WMA", "wma", kWmaRates, {}, 1, kHighestRate, 2, Coding::Wma, Ffmpeg, Asf},
    {"G.721", "g721 au snd", {}, kFourBits, 1, kHighestRate, 1, Coding::G721, Sndfile, Au},
    {"G.723", "g723 au snd", {}, kG723Bits, 1, kHighestRate, 1, Coding::G723, Sndfile, Au},
    {"G.726", "g726 wav", {}, kG726Bits, 8, kHighestRate, 1, Coding::G726, Ffmpeg, Wav},
};

constexpr std::string_view kRawExtensions = "raw pcm";

// No user would expect another format under one of these names.
constexpr std::string_view kOnlyRead =
    "aac ac3 aifc amr ape asf avi caf cda g729 gsm m4a m4b mka mkv mov mp4 mpc mpg rf64 spx tta "
    "voc w64 webm wmv wv";

const Row& RowOf(Coding kind) {
    return *std::ranges::find(kRows, kind, &Row::Kind);
}

bool Contains(std::string_view words, std::string_view word) {
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        if (words.substr(0, end) == word) return true;
        words.remove_prefix(std::min(end + 1, words.size()));
    }
    return false;
}

Container ContainerOf(const Row& row, std::string_view extension) {
    if (Contains("aif aiff", extension)) return Aiff;
    if (Contains("au snd", extension)) return Au;
    return row.Usual;
}

// The lower one of two that are equally near.
std::int32_t NearestOf(std::int32_t value, std::span<const std::int32_t> allowed) {
    return *std::ranges::min_element(allowed, {},
                                     [value](std::int64_t one) { return std::abs(one - value); });
}

OutputFormat MakeFormat(Coding kind, PcmFormat document) {
    const Row& row = RowOf(kind);
    OutputFormat format{kind, document, row.Bits.empty() ? 16 : row.Bits.front()};
    if (kind == Coding::Pcm) format.Bits = 16;
    if (kind == Coding::G726) format.Bits = 4;
    // What telephones have, whatever the document has.
    if (Contains("vox g721 g723 g726", row.Extensions.substr(0, row.Extensions.find(' '))))
        format.Format = {8000, 1};
    if (kind == Coding::Mp2 || kind == Coding::Wma)
        format.Rates.Nominal = document.Channels == 2 ? 128 : 64;
    return format;
}

std::int32_t LimitedRate(const Row& row, std::int32_t rate) {
    return row.Rates.empty() ? std::clamp(rate, row.LowestRate, row.HighestRate)
                             : NearestOf(rate, row.Rates);
}

void LimitBitRates(OutputFormat& format) {
    auto& [nominal, least, most] = format.Rates;
    constexpr std::int32_t kMostBitRate = 1000;
    for (std::int32_t* rate : {&nominal, &least, &most})
        *rate = std::clamp(*rate, 0, kMostBitRate);
    if (format.Kind == Coding::Mp2) {
        nominal = NearestMpegRate(2, format.Format.Rate, nominal > 0 ? nominal : 128);
    } else if (format.Kind == Coding::Mp3 && nominal > 0) {
        nominal = NearestMpegRate(3, format.Format.Rate, nominal);
    } else if (format.Kind == Coding::Wma) {
        nominal = std::clamp(nominal, 24, 320);
    } else if (format.Kind == Coding::Vorbis) {
        if (most > 0) least = std::min(least, most);
        if (nominal > 0) nominal = std::max(nominal, least);
        if (nominal > 0 && most > 0) nominal = std::min(nominal, most);
    }
}

}  // namespace

EncoderKind EncoderFor(const OutputFormat& format) {
    const bool rates = format.Rates != BitRates() && !format.Quality;
    return format.Kind == Coding::Vorbis && rates ? EncoderKind::Ffmpeg
                                                  : RowOf(format.Kind).Encoder;
}

OutputFormat Nearest(OutputFormat format) {
    const Row& row = RowOf(format.Kind);
    format.Format = {LimitedRate(row, format.Format.Rate),
                     std::clamp(format.Format.Channels, 1, row.MostChannels)};
    if (!row.Bits.empty()) format.Bits = NearestOf(format.Bits, row.Bits);
    if (format.Quality) format.Quality = std::clamp(*format.Quality, 0, 10);
    LimitBitRates(format);
    return format;
}

OutputFormat Nearest(OutputFormat format, std::int32_t source) {
    format = Nearest(format);
    if (RowOf(format.Kind).Rates.empty())
        format.Format.Rate =
            std::clamp(format.Format.Rate, (source + kHighestRatio - 1) / kHighestRatio,
                       source * std::min(kHighestRatio, kHighestRate / source));
    return format;
}

std::optional<Container> ContainerFor(const OutputFormat& format, std::string_view extension) {
    if (format.Headerless)
        return Contains(kRawExtensions, extension) ? std::optional(Raw) : std::nullopt;
    const Row& row = RowOf(format.Kind);
    if (!Contains(row.Extensions, extension)) return std::nullopt;
    return ContainerOf(row, extension);
}

Container UsualContainer(const OutputFormat& format) {
    return format.Headerless ? Raw : RowOf(format.Kind).Usual;
}

bool IsOfType(const OutputFormat& format, FormatType type) {
    if (format.Headerless) return type == FormatType::Raw;
    switch (type) {
        case FormatType::Wav:
            return UsualContainer(format) == Wav && format.Kind != Coding::G726;
        case FormatType::Mp3:
            return format.Kind == Coding::Mp3;
        case FormatType::Vox:
            return format.Kind == Coding::Vox;
        case FormatType::G726:
            return format.Kind == Coding::G726;
        case FormatType::Ogg:
            return format.Kind == Coding::Vorbis;
        case FormatType::G721:
            return format.Kind == Coding::G721;
        case FormatType::G723:
            return format.Kind == Coding::G723;
        case FormatType::Wma:
            return format.Kind == Coding::Wma;
        case FormatType::Mp2:
            return format.Kind == Coding::Mp2;
        default:
            return false;
    }
}

std::optional<OutputFormat> FormatByExtension(std::string_view extension, PcmFormat document) {
    if (Contains(kRawExtensions, extension)) return FormatByType(FormatType::Raw, document);
    const auto* row = std::ranges::find_if(
        kRows, [&](const Row& one) { return Contains(one.Extensions, extension); });
    if (row == std::end(kRows)) return std::nullopt;
    return Nearest(MakeFormat(row->Kind, document));
}

std::optional<OutputFormat> FormatByType(FormatType type, PcmFormat document) {
    if (type == FormatType::Raw) {
        OutputFormat format = MakeFormat(Coding::Pcm, document);
        format.Headerless = true;
        return format;
    }
    const auto* row = std::ranges::find_if(kRows, [&](const Row& one) {
        return one.Encoder != EncoderKind::None && IsOfType(MakeFormat(one.Kind, document), type);
    });
    if (row == std::end(kRows)) return std::nullopt;
    return Nearest(MakeFormat(row->Kind, document));
}

bool IsKnownExtension(std::string_view extension) {
    return Contains(kRawExtensions, extension) || Contains(kOnlyRead, extension) ||
           std::ranges::any_of(kRows,
                               [&](const Row& row) { return Contains(row.Extensions, extension); });
}

std::int32_t NearestMpegRate(int layer, std::int32_t hertz, std::int32_t rate) {
    static constexpr std::int32_t kLayer2[] = {32,  48,  56,  64,  80,  96,  112,
                                               128, 160, 192, 224, 256, 320, 384};
    static constexpr std::int32_t kLayer3[] = {32,  40,  48,  56,  64,  80,  96,
                                               112, 128, 160, 192, 224, 256, 320};
    static constexpr std::int32_t kLowRates[] = {8,  16, 24, 32,  40,  48,  56,
                                                 64, 80, 96, 112, 128, 144, 160};
    constexpr std::size_t kAtLowestRates = 8;  // up to 64
    if (hertz >= 32000) return NearestOf(rate, layer == 2 ? kLayer2 : kLayer3);
    if (layer == 3 && hertz < 16000)
        return NearestOf(rate, std::span(kLowRates).first(kAtLowestRates));
    return NearestOf(rate, kLowRates);
}

bool IsMpegRate(std::int32_t hertz) {
    return std::ranges::find(kMpegRates, hertz) != std::end(kMpegRates);
}

OutputFormat WmaProfile(std::int32_t number) {
    struct Group {
        PcmFormat Format;
        std::array<std::int32_t, 10> Rates;
    };
    static constexpr Group kGroups[] = {
        {{8000, 1}, {24, 26, 28, 30, 32, 34, 36, 40, 44, 48}},
        {{16000, 1}, {24, 28, 32, 36, 40, 44, 48, 56, 64, 80}},
        {{22050, 2}, {24, 28, 32, 36, 40, 48, 56, 64, 80, 96}},
        {{44100, 2}, {32, 40, 48, 56, 64, 72, 80, 96, 112, 128}},
        {{44100, 2}, {136, 144, 160, 176, 192, 208, 224, 256, 288, 320}},
        {{48000, 2}, {64, 80, 96, 112, 128, 160, 192, 224, 256, 320}},
    };
    const auto limited = static_cast<std::size_t>(std::clamp<std::int32_t>(
        number, 0, 10 * static_cast<std::int32_t>(std::size(kGroups)) - 1));
    const auto& [format, rates] = kGroups[limited / 10];
    OutputFormat made{Coding::Wma, format};
    made.Rates.Nominal = rates[limited % 10];
    return made;
}

std::string TextOf(const OutputFormat& format) {
    const Row& row = RowOf(format.Kind);
    const auto [rate, channels] = format.Format;
    if (!row.Bits.empty()) return TextWithBits(row.Name, rate, format.Bits, channels);
    return TextWithBitRate(row.Name, rate, format.Quality ? 0 : format.Rates.Nominal * 1000,
                           channels);
}

}  // namespace mavrin2::dusoro
