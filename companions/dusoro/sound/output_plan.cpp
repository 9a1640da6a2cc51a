#include "companions/dusoro/sound/output_plan.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "companions/dusoro/sound/reading_plan.h"

namespace mavrin2::dusoro {
namespace {

constexpr std::pair<std::string_view, Container> kWritten[] = {
    {"wav", Container::Wav},       {"aif", Container::Aiff},  {"aiff", Container::Aiff},
    {"flac", Container::Flac},     {"opus", Container::Opus}, {"mp3", Container::Mp3},
    {"ogg", Container::OggVorbis}, {"vox", Container::Vox},   {"oga", Container::OggVorbis},
};

// No user would expect ADPCM under one of these names.
constexpr std::string_view kOnlyRead[] = {
    "aac",  "ac3",  "aifc", "amr", "ape", "asf", "au",  "avi", "caf",  "cda", "g721", "g723",
    "g726", "g729", "gsm",  "m4a", "m4b", "mka", "mkv", "mov", "mp2",  "mp4", "mpc",  "mpg",
    "raw",  "rf64", "snd",  "spx", "tta", "voc", "w64", "wma", "webm", "wmv", "wv",
};

Outcome<Container> KindOf(const std::filesystem::path& name, FormatType type) {
    switch (type) {
        case FormatType::Default:
            break;
        case FormatType::Wav:
            return Container::Wav;
        case FormatType::Mp3:
            return Container::Mp3;
        case FormatType::Ogg:
            return Container::OggVorbis;
        case FormatType::Vox:
            return Container::Vox;
        default:
            return SoundError::FormatNotSupported;
    }
    const std::string extension = ExtensionOf(name);
    for (const auto& [written, kind] : kWritten)
        if (extension == written) return kind;
    if (std::find(std::begin(kOnlyRead), std::end(kOnlyRead), extension) != std::end(kOnlyRead))
        return SoundError::FormatNotSupported;
    return Container::Vox;
}

template <std::size_t Count>
std::int32_t Nearest(std::int32_t rate, const std::array<std::int32_t, Count>& allowed) {
    return *std::min_element(allowed.begin(), allowed.end(), [rate](auto a, auto b) {
        return std::abs(a - rate) < std::abs(b - rate);
    });
}

std::int32_t CarriedRate(Container kind, std::int32_t rate) {
    switch (kind) {
        case Container::Mp3:
            return Nearest(
                rate, std::array{8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000});
        case Container::Opus:
            // Every decoder delivers this rate, whatever was encoded: so markers stay in place.
            return 48000;
        case Container::OggVorbis:
            return std::clamp(rate, 8000, 192000);
        case Container::Flac:
            return std::min(rate, 655350);
        default:
            return rate;
    }
}

}  // namespace

Outcome<OutputPlan> PlanOutput(const std::filesystem::path& name, FormatType type,
                               const OutputSettings& settings) {
    const Outcome<Container> kind = KindOf(name, type);
    if (!kind) return kind.Error;
    const bool chosen =
        type == FormatType::Default && kind.Result == Container::Vox && ExtensionOf(name) != "vox";
    OutputPlan plan{chosen && settings.Pcm ? Container::Wav : kind.Result, settings.Document};
    if (plan.Kind == Container::Vox) {
        plan.Carried = {settings.VoxRate, 1};
        plan.BitsPerSample = 4;
        return plan;
    }
    plan.Carried.Rate = CarriedRate(plan.Kind, plan.Carried.Rate);
    if (plan.Kind == Container::Wav || plan.Kind == Container::Aiff)
        plan.BitsPerSample = settings.BitsPerSample;
    return plan;
}

}  // namespace mavrin2::dusoro
