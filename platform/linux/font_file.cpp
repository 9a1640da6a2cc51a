#include "platform/linux/font_file.h"

#include <fontconfig/fontconfig.h>

#include <memory>

namespace mavrin2::platform {
namespace {

struct PatternEnd {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternEnd>;

const FcChar8* Text(const char* text) {
    return reinterpret_cast<const FcChar8*>(text);
}

int Number(const Pattern& pattern, const char* name, int otherwise) {
    int value = otherwise;
    return FcPatternGetInteger(pattern.get(), name, 0, &value) == FcResultMatch ? value : otherwise;
}

}  // namespace

std::optional<FontFile> FindFontFile(const FontDescription& description) {
    const Pattern wanted(FcPatternCreate());
    if (!wanted) return std::nullopt;
    const int weight = FcWeightFromOpenType(description.Weight);
    FcPatternAddString(wanted.get(), FC_FAMILY, Text(description.Family.c_str()));
    // Instead of a family that is not there: what a font object starts with.
    FcPatternAddString(wanted.get(), FC_FAMILY, Text(FontDescription().Family.c_str()));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, weight);
    FcPatternAddInteger(wanted.get(), FC_SLANT,
                        description.Italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddDouble(wanted.get(), FC_PIXEL_SIZE, EmPixels(description));
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());

    FcResult result = FcResultNoMatch;
    const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
    FcChar8* path = nullptr;
    if (!found || FcPatternGetString(found.get(), FC_FILE, 0, &path) != FcResultMatch)
        return std::nullopt;
    FontFile file;
    file.Path = reinterpret_cast<const char*>(path);
    file.Index = Number(found, FC_INDEX, 0);
    file.NeedsSlant =
        description.Italic && Number(found, FC_SLANT, FC_SLANT_ROMAN) == FC_SLANT_ROMAN;
    file.NeedsWeight =
        weight >= FC_WEIGHT_DEMIBOLD && Number(found, FC_WEIGHT, weight) <= FC_WEIGHT_MEDIUM;
    return file;
}

}  // namespace mavrin2::platform
