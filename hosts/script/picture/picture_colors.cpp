#include "hosts/script/picture/picture_colors.h"

#include <algorithm>
#include <charconv>

#include "automation/text.h"
#include "hosts/script/commands/command.h"

namespace mavrin2::script {
namespace {

struct NamedColor {
    std::string_view Name;
    std::uint32_t Color;
};

// As in CSS.
constexpr NamedColor kNamed[] = {
    {"black", 0x000000},  {"white", 0xFFFFFF},  {"gray", 0x808080},    {"grey", 0x808080},
    {"silver", 0xC0C0C0}, {"red", 0xFF0000},    {"maroon", 0x800000},  {"orange", 0xFFA500},
    {"gold", 0xFFD700},   {"brown", 0xA52A2A},  {"yellow", 0xFFFF00},  {"olive", 0x808000},
    {"lime", 0x00FF00},   {"green", 0x008000},  {"cyan", 0x00FFFF},    {"aqua", 0x00FFFF},
    {"teal", 0x008080},   {"blue", 0x0000FF},   {"navy", 0x000080},    {"purple", 0x800080},
    {"pink", 0xFFC0CB},   {"violet", 0xEE82EE}, {"magenta", 0xFF00FF}, {"fuchsia", 0xFF00FF}};

constexpr std::string_view kTransparent = "transparent";

// A part of a picture with the properties that colour it.
struct Part {
    std::string_view Name;
    std::string_view Property;
    std::string_view Second = {};  // of the same colour
    bool CanBeTransparent = false;
};

constexpr Part kParts[] = {{"background", "Background", "", true},
                           {"wave", "DigitalWaveform"},
                           {"curve", "AnalogWaveform"},
                           {"center", "CenterLine", "SelectCenterLine"},
                           {"limit", "Boundary"},
                           {"grid", "Grid"},
                           {"axis", "Scales", "", true},
                           {"text", "Font"},
                           {"selection", "SelectBackground", "", true},
                           {"selected-wave", "SelectDigitalWaveform"},
                           {"selected-curve", "SelectAnalogWaveform"},
                           {"cursor", "Cursor"},
                           {"marker", "CueMarker"},
                           {"range", "RangeMarker"},
                           {"range-background", "RangeMarkerBackground", "", true}};

std::string PartNames() {
    std::string names;
    for (const Part& part : kParts) {
        if (!names.empty()) names += ", ";
        names += part.Name;
    }
    return names;
}

// As automation writes it, 0x00BBGGRR.
std::int32_t ToAutomation(std::uint32_t color) {
    return static_cast<std::int32_t>((color & 0xFF) << 16 | (color & 0xFF00) |
                                     (color >> 16 & 0xFF));
}

void Put(const binding::LateBound& colors, const Part& part, std::uint32_t color) {
    colors.Put(part.Property, ToAutomation(color));
    if (!part.Second.empty()) colors.Put(part.Second, ToAutomation(color));
}

// The curve between samples is half as bright as they are, as it is by default.
std::uint32_t Dimmed(std::uint32_t color) {
    return color >> 1 & 0x7F7F7F;
}

}  // namespace

std::optional<std::uint32_t> ColorOf(std::string_view text) {
    const std::string name = automation::AsciiLower(std::string(text));
    const auto* const named = std::ranges::find(kNamed, name, &NamedColor::Name);
    if (named != std::end(kNamed)) return named->Color;
    constexpr int kHexadecimal = 16;
    std::uint32_t color = 0;
    const char* const end = name.data() + name.size();
    if ((name.size() != 7 && name.size() != 4) || name.front() != '#') return std::nullopt;
    const auto result = std::from_chars(name.data() + 1, end, color, kHexadecimal);
    if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
    if (name.size() == 7) return color;
    return ((color & 0xF00) << 8 | (color & 0xF0) << 4 | (color & 0xF)) * 0x11;
}

PictureColors::PictureColors(std::span<const std::string> settings) {
    for (std::string_view setting : settings)
        for (bool last = false; !last;) {
            const std::size_t comma = setting.find(',');
            last = comma == std::string_view::npos;
            Add(setting.substr(0, comma));
            if (!last) setting.remove_prefix(comma + 1);
        }
}

void PictureColors::Add(std::string_view setting) {
    const std::string text(setting);
    const std::size_t sign = setting.find('=');
    if (sign == std::string_view::npos)
        throw UsageError("invalid value '" + text + "' for --color; try background=white");
    const std::string_view name = setting.substr(0, sign);
    const auto* const part = std::ranges::find(kParts, name, &Part::Name);
    if (part == std::end(kParts))
        throw UsageError("unknown part '" + std::string(name) + "' for --color; try " +
                         PartNames());
    const auto index = static_cast<std::size_t>(part - kParts);
    if (std::ranges::find(choices_, index, &Choice::Part) != choices_.end())
        throw UsageError("two colors for '" + std::string(name) + "'");
    const std::string_view value = setting.substr(sign + 1);
    const auto color = ColorOf(value);
    const bool transparent = automation::AsciiLower(std::string(value)) == kTransparent;
    if (transparent && !part->CanBeTransparent)
        throw UsageError("'" + std::string(name) +
                         "' cannot be transparent; background, axis, selection and "
                         "range-background can");
    if (!color && !transparent)
        throw UsageError("unknown color '" + std::string(value) +
                         "' for --color; try a name such as white, orange or navy, #rrggbb or "
                         "transparent");
    choices_.push_back({index, color});
}

bool PictureColors::HasTransparent() const {
    return std::ranges::any_of(choices_, [](const Choice& choice) { return !choice.Color; });
}

void PictureColors::ApplyTo(const binding::LateBound& colors) const {
    for (const Choice& choice : choices_) {
        const Part& part = kParts[choice.Part];
        if (!choice.Color) continue;
        Put(colors, part, *choice.Color);
        const auto dim = [&](std::string_view points, std::string_view curve) {
            const bool chosen = std::ranges::any_of(choices_, [&](const Choice& other) {
                return kParts[other.Part].Property == curve;
            });
            if (part.Property == points && !chosen)
                colors.Put(curve, ToAutomation(Dimmed(*choice.Color)));
        };
        dim("DigitalWaveform", "AnalogWaveform");
        dim("SelectDigitalWaveform", "SelectAnalogWaveform");
    }
}

void PictureColors::PutTransparent(const binding::LateBound& colors, std::uint32_t color) const {
    for (const Choice& choice : choices_)
        if (!choice.Color) Put(colors, kParts[choice.Part], color);
}

}  // namespace mavrin2::script
