#include "companions/dusoro/sound/reading_plan.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace mavrin2::dusoro {
namespace {

using enum DecoderKind;

struct Magic {
    std::string_view First;   // at the beginning
    std::string_view Second;  // at byte 8, where it matters
};

// libsndfile reads these, and it is there at once.
constexpr Magic kSndfileFirst[] = {
    {"RIFF", "WAVE"}, {"RIFX", "WAVE"}, {"RF64", "WAVE"}, {"FORM", "AIFF"}, {"FORM", "AIFC"},
    {"riff", ""},     {".snd", ""},     {"dns.", ""},     {"caff", ""},
};

bool Matches(std::string_view head, const Magic& magic) {
    return head.starts_with(magic.First) &&
           (magic.Second.empty() ||
            head.substr(std::min<std::size_t>(8, head.size())).starts_with(magic.Second));
}

// Of MPEG audio, tagged or not, and of Ogg there is nothing that libsndfile could add to FFmpeg;
// its decoder of the former writes complaints to the terminal.
bool IsFfmpegsOwn(std::string_view head) {
    const bool mpeg = head.size() >= 2 && head[0] == '\xFF' && (head[1] & 0xE0) == 0xE0;
    return mpeg || head.starts_with("ID3") || head.starts_with("OggS");
}

bool IsHeaderless(FormatType type) {
    using enum FormatType;
    constexpr std::array kHeaderless = {Raw, G721, G723, G726, G729};
    return std::find(kHeaderless.begin(), kHeaderless.end(), type) != kHeaderless.end();
}

bool IsHeaderless(std::string_view extension) {
    constexpr std::array<std::string_view, 5> kHeaderless = {"raw", "g721", "g723", "g726", "g729"};
    return std::find(kHeaderless.begin(), kHeaderless.end(), extension) != kHeaderless.end();
}

}  // namespace

std::string ExtensionOf(const std::filesystem::path& name) {
    std::string extension = name.extension().string();
    if (!extension.empty()) extension.erase(0, 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return extension;
}

Outcome<ReadingPlan> PlanReading(std::span<const std::byte> head, const std::filesystem::path& name,
                                 FormatType type, const OutputFormat& chosen) {
    const ReadingPlan vox{
        {Sndfile}, chosen.Kind == Coding::Vox && !chosen.Headerless ? chosen : OutputFormat()};
    if (type == FormatType::Vox) return vox;
    const ReadingPlan raw{{Sndfile}, chosen};
    if (type == FormatType::Raw && chosen.Headerless) return raw;

    const std::string_view text(reinterpret_cast<const char*>(head.data()), head.size());
    for (const Magic& magic : kSndfileFirst)
        if (Matches(text, magic)) return ReadingPlan{{Sndfile, Ffmpeg}};

    // FLAC's own library takes two thirds of FFmpeg's time, and libsndfile, which is built on it,
    // ends where a file is damaged.
    if (text.starts_with("fLaC")) return ReadingPlan{{Flac, Ffmpeg}};

    const std::string extension = ExtensionOf(name);
    if (extension == "vox") return vox;
    if (chosen.Headerless && ContainerFor(chosen, extension)) return raw;
    // What these bytes are would be a guess.
    if (IsHeaderless(type) || IsHeaderless(extension)) return SoundError::FormatNotSupported;
    return IsFfmpegsOwn(text) ? ReadingPlan{{Ffmpeg}} : ReadingPlan{{Ffmpeg, Sndfile}};
}

}  // namespace mavrin2::dusoro
