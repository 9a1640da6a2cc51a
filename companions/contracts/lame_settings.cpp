#include "companions/contracts/lame_settings.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>
#include <optional>
#include <vector>

namespace mavrin2::contracts {
namespace {

constexpr std::int32_t kVoice = 5;
constexpr std::int32_t kR3mix = 11;
constexpr std::size_t kMostTokens = 127;

struct Preset {
    std::string_view Name;
    std::int32_t Number;
    std::int32_t Frequency, LowPass, LowPassWidth;
    std::int16_t Channels, TypeStereo, Bitrate, VbrBitrate, EncoderQuality, VbrQuality, Method;
    std::int16_t Kind;
};

constexpr Preset kPresets[] = {
    {"phone", 1, 8000, 3200, 1000, 1, 1, 8, 56, 5, 6, 0, 0},
    {"sw", 2, 11025, 4800, 500, 1, 1, 8, 64, 5, 5, 0, 0},
    {"am", 3, 16000, 7200, 500, 1, 1, 24, 160, 5, 5, 0, 0},
    {"fm", 4, 22050, 9950, 880, 2, 2, 16, 128, 5, 5, 0, 0},
    {"voice", kVoice, 32000, 12300, 2000, 1, 2, 32, 128, 5, 5, 0, 0},
    {"radio", 6, 44100, 15000, 0, 2, 2, 64, 256, 5, 4, 0, 0},
    {"tape", 7, 44100, 18500, 2000, 2, 2, 96, 320, 5, 4, 0, 0},
    {"hifi", 8, 44100, 20240, 2200, 2, 2, 112, 320, 2, 3, 0, 0},
    {"cd", 9, 44100, -1, 0, 2, 1, 128, 320, 2, 2, 0, 0},
    {"studio", 10, 44100, -1, 0, 2, 1, 160, 320, 2, 0, 0, 0},
    {"r3mix", kR3mix, 44100, 19500, 0, 2, 2, 96, 320, 2, 1, 3, 1},
    {"fast standard", 101, 44100, 19000, 0, 2, 2, 128, 320, 2, 1, 2, 2},
    {"standard", 102, 44100, 19000, 0, 2, 2, 128, 320, 2, 1, 1, 2},
    {"fast extreme", 103, 44100, 19500, 0, 2, 2, 128, 320, 2, 1, 2, 3},
    {"extreme", 104, 44100, 19500, 0, 2, 2, 128, 320, 2, 1, 1, 3},
    {"insane", 105, 44100, 20500, 0, 2, 2, 320, 320, 2, 1, 1, 4},
};

std::vector<std::string_view> TokensOf(std::string_view line) {
    std::vector<std::string_view> tokens;
    while (tokens.size() < kMostTokens) {
        const std::size_t space = line.find(' ');
        tokens.push_back(line.substr(0, space));
        if (space == std::string_view::npos) break;
        line.remove_prefix(space + 1);
    }
    return tokens;
}

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\n\v\f\r");
    return text.substr(std::min(first, text.size()));
}

// The digits in front; as in 32 bits, of which the caller may keep the lower 16.
std::int32_t IntegerOf(std::string_view text) {
    text = WithoutBlanks(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    std::uint32_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        value = value * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return static_cast<std::int32_t>(negative ? 0 - value : value);
}

double FractionOf(std::string_view text) {
    text = WithoutBlanks(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    // Words for infinity and the like are no numbers here.
    if (text.find_first_of("0123456789.") > 1) return 0;
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() ? value : 0;
}

std::int32_t HertzOf(double kilohertz) {
    constexpr double kMost = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(kilohertz * 1000 + 0.5, -kMost, kMost));
}

class CommandLine {
public:
    CommandLine(LameSettings& settings, std::string_view line)
        : settings_(settings), tokens_(TokensOf(line)) {}

    void Read() {
        while (at_ < tokens_.size()) {
            const std::string_view option = tokens_[at_++];
            if (!ReadFlag(option) && !ReadNumber(option)) ReadWords(option);
        }
    }

private:
    using Short = std::int16_t LameSettings::*;
    using Long = std::int32_t LameSettings::*;

    std::optional<std::string_view> Next() const {
        return at_ < tokens_.size() ? std::optional(tokens_[at_]) : std::nullopt;
    }

    // Options without a value.
    bool ReadFlag(std::string_view option) {
        struct Flag {
            std::string_view Option;
            Short Field;
            std::int16_t Value;
        };
        static constexpr Flag kFlags[] = {
            {"-f", &LameSettings::VbrQuality, 9},
            {"-f", &LameSettings::EncoderQuality, 1},
            {"-h", &LameSettings::VbrQuality, 0},
            {"-h", &LameSettings::EncoderQuality, 3},
            {"-t", &LameSettings::WritingVbrHeader, 0},
            {"--ath", &LameSettings::AthControlMode, 1},
            {"--noath", &LameSettings::AthControlMode, 2},
            {"--athshort", &LameSettings::AthControlMode, 3},
            {"-F", &LameSettings::StrictMinBitrate, 1},
            {"-p", &LameSettings::ErrorProtection, 1},
            {"--nores", &LameSettings::NoBitReservoir, 1},
            {"-noshort", &LameSettings::NoShortBlocks, 1},
            {"--strictly-enforce-ISO", &LameSettings::StrictIsoCompliance, 1},
            {"-d", &LameSettings::BlockTypeControl, 1},
            {"-vbr", &LameSettings::VbrCodingMethod, 0},
            {"--vbr-new", &LameSettings::VbrCodingMethod, 2},
            {"--vbr-old", &LameSettings::VbrCodingMethod, 1},
            {"--vbr-mtrh", &LameSettings::VbrCodingMethod, 3},
        };
        bool known = false;
        for (const Flag& flag : kFlags) {
            if (flag.Option != option) continue;
            settings_.*flag.Field = flag.Value;
            known = true;
        }
        if (option == "-k") settings_.LowPassFrequency = settings_.HighPassFrequency = -1;
        if (option == "--r3mix") ApplyLamePreset(settings_, kR3mix);
        return known;
    }

    // Options with an integer.
    bool ReadNumber(std::string_view option) {
        struct Number {
            std::string_view Option;
            Short Field;
        };
        static constexpr Number kNumbers[] = {
            {"-b", &LameSettings::Bitrate},       {"-B", &LameSettings::VbrBitrate},
            {"--abr", &LameSettings::AbrBitrate}, {"-q", &LameSettings::EncoderQuality},
            {"-v", &LameSettings::VbrQuality},    {"-e", &LameSettings::Emphasis},
        };
        const auto* found = std::ranges::find(kNumbers, option, &Number::Option);
        if (found == std::end(kNumbers)) return false;
        const auto value = Next();
        if (!value) return true;
        ++at_;
        settings_.*found->Field = static_cast<std::int16_t>(IntegerOf(*value));
        if (option == "--abr") settings_.VbrCodingMethod = 4;
        return true;
    }

    void ReadWords(std::string_view option) {
        const auto value = Next();
        if (!value) return;
        if (option == "-m") {
            ++at_;
            SetMode(*value);
        } else if (option == "--resample") {
            ++at_;
            settings_.Frequency = HertzOf(FractionOf(*value));
        } else if (option == "--preset") {
            ++at_;
            settings_.VbrCodingMethod = 0;
            ApplyNamed(*value, 0);
        } else if (option == "--alt-preset") {
            ++at_;
            settings_.VbrCodingMethod = 0;
            ApplyAltPreset(*value);
        } else if (option == "--highpass") {
            SetPass(&LameSettings::HighPassFrequency, *value);
        } else if (option == "--highpass-width") {
            SetPass(&LameSettings::HighPassWidth, *value);
        } else if (option == "--lowpass") {
            SetPass(&LameSettings::LowPassFrequency, *value);
        } else if (option == "--lowpass-width") {
            SetPass(&LameSettings::LowPassWidth, *value);
        }
    }

    void SetMode(std::string_view mode) {
        static constexpr std::string_view kStereo = "sjfd";
        if (mode == "m") settings_.Channels = 1;
        const std::size_t type = kStereo.find(mode);
        if (mode.size() != 1 || type == std::string_view::npos) return;
        settings_.Channels = 2;
        settings_.TypeStereo = static_cast<std::int16_t>(type + 1);
    }

    // A value that is not above 0 is another option.
    void SetPass(Long field, std::string_view value) {
        settings_.*field = 0;
        const double kilohertz = FractionOf(value);
        if (!(kilohertz > 0)) return;
        ++at_;
        settings_.*field = HertzOf(kilohertz);
    }

    bool ApplyNamed(std::string_view name, std::int32_t above) {
        const auto* found = std::ranges::find_if(kPresets, [&](const Preset& preset) {
            return preset.Name == name && (preset.Number > kAltPresets) == (above > 0);
        });
        if (found == std::end(kPresets)) return false;
        ApplyLamePreset(settings_, found->Number);
        return true;
    }

    void ApplyAltPreset(std::string_view name) {
        if (name != "fast") {
            ApplyNamed(name, kAltPresets);
            return;
        }
        const auto second = Next();
        if (second && (*second == "standard" || *second == "extreme")) {
            ++at_;
            ApplyNamed(*second == "standard" ? "fast standard" : "fast extreme", kAltPresets);
        }
    }

    LameSettings& settings_;
    std::vector<std::string_view> tokens_;
    std::size_t at_ = 0;
};

}  // namespace

void ApplyLamePreset(LameSettings& settings, std::int32_t preset) {
    const auto* found = std::ranges::find(kPresets, preset, &Preset::Number);
    if (found == std::end(kPresets)) {
        settings = {};
        settings.VbrBitrate = 128;
        return;
    }
    settings.Frequency = found->Frequency;
    settings.Channels = found->Channels;
    settings.TypeStereo = found->TypeStereo;
    settings.Bitrate = found->Bitrate;
    settings.VbrBitrate = found->VbrBitrate;
    settings.EncoderQuality = found->EncoderQuality;
    settings.VbrQuality = found->VbrQuality;
    settings.VbrCodingMethod = found->Method;
    settings.LowPassFrequency = found->LowPass;
    settings.LowPassWidth = found->LowPassWidth;
    settings.HighPassFrequency = -1;
    settings.HighPassWidth = 0;
    settings.PresetKind = found->Kind;
    if (preset == kVoice) settings.NoShortBlocks = 1;
}

void ApplyLameCommandLine(LameSettings& settings, std::string_view line) {
    if (line.empty()) return;
    ApplyLamePreset(settings, 0);
    CommandLine(settings, line).Read();
}

}  // namespace mavrin2::contracts
