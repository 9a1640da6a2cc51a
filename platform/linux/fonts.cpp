#include "platform/linux/fonts.h"

#include "platform/font_cache.h"
#include "platform/linux/font_file.h"
#include "platform/linux/scaled_font.h"

namespace mavrin2::platform {
namespace {

class NoFont final : public Font {
public:
    TextExtent Measure(std::string_view) const override { return {}; }
    void Draw(const Pixels&, int, int, std::string_view, std::uint32_t) const override {}
};

}  // namespace

std::shared_ptr<FontLoader> LinuxFonts() {
    std::shared_ptr<FT_LibraryRec_> library;
    return CachedFonts([library](const FontDescription& wanted) mutable {
        if (!library) library = NewFontLibrary();
        std::shared_ptr<const Font> font;
        if (const auto file = FindFontFile(wanted)) font = NewScaledFont(library, *file, wanted);
        return font ? font : std::make_shared<NoFont>();
    });
}

}  // namespace mavrin2::platform
