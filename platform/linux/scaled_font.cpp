#include "platform/linux/scaled_font.h"

#include <fontconfig/fontconfig.h>
#include <freetype/freetype.h>
#include <freetype/ftsynth.h>
#include <freetype/tttables.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <utility>

#include "platform/coverage.h"

namespace mavrin2::platform {
namespace {

using Library = std::shared_ptr<FT_LibraryRec_>;

struct FaceEnd {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};
using Face = std::unique_ptr<FT_FaceRec_, FaceEnd>;

struct Glyph {
    int Advance = 0;
    Coverage Shape;
};

struct Line {
    int Top = 0;  // below the baseline
    int Thickness = 0;
};

int Rounded(FT_Pos position) {
    return static_cast<int>((position + 32) >> 6);
}

class ScaledFont final : public Font {
public:
    ScaledFont(Library library, Face face, FontFile file, const FontDescription& description)
        : library_(std::move(library)), face_(std::move(face)), file_(std::move(file)) {
        const auto scaled = [&](FT_Long units) {
            return Rounded(FT_MulFix(units, face_->size->metrics.y_scale));
        };
        const auto line = [&](FT_Long top, FT_Long thickness) {
            return Line{-scaled(top), std::max(scaled(thickness), 1)};
        };
        FT_Long ascent = face_->ascender;
        FT_Long descent = -face_->descender;
        Line strike = line(face_->ascender / 3, face_->underline_thickness);
        const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face_.get(), FT_SFNT_OS2));
        if (os2 != nullptr) {
            strike = line(os2->yStrikeoutPosition, os2->yStrikeoutSize);
            if (os2->usWinAscent + os2->usWinDescent != 0) {
                ascent = os2->usWinAscent;
                descent = os2->usWinDescent;
            }
        }
        ascent_ = scaled(ascent);
        height_ = ascent_ + scaled(descent);
        if (description.Strikethrough) lines_.push_back(strike);
        // The stated position is the middle of the line.
        const FT_Long thickness = face_->underline_thickness;
        if (description.Underline)
            lines_.push_back(line(face_->underline_position + thickness / 2, thickness));
    }

    TextExtent Measure(std::string_view text) const override {
        int width = 0;
        ForEachGlyph(text, [&](const Glyph& glyph) { width += glyph.Advance; });
        return {width, height_};
    }

    void Draw(const Pixels& target, int x, int y, std::string_view text,
              std::uint32_t color) const override {
        const int baseline = y + ascent_;
        int pen = x;
        ForEachGlyph(text, [&](const Glyph& glyph) {
            Blend(target, pen, baseline, glyph.Shape, color);
            pen += glyph.Advance;
        });
        for (const Line& line : lines_) {
            Coverage bar{0, line.Top, pen - x, line.Thickness, {}};
            bar.Values.assign(static_cast<std::size_t>(bar.Width) * bar.Height, 0xFF);
            Blend(target, x, baseline, bar, color);
        }
    }

private:
    template <typename Use>
    void ForEachGlyph(std::string_view text, const Use& use) const {
        while (!text.empty()) {
            FcChar32 character = 0;
            const int used = FcUtf8ToUcs4(reinterpret_cast<const FcChar8*>(text.data()), &character,
                                          static_cast<int>(std::min<std::size_t>(text.size(), 16)));
            if (used <= 0) character = 0xFFFD;
            text.remove_prefix(static_cast<std::size_t>(std::max(used, 1)));
            use(GlyphOf(character));
        }
    }

    const Glyph& GlyphOf(FcChar32 character) const {
        const auto known = glyphs_.find(character);
        if (known != glyphs_.end()) return known->second;
        Glyph glyph = Loaded(character);
        // Enough for any alphabet on a screen; a huge font starts again more often.
        constexpr std::size_t kMostPixels = std::size_t{4} << 20;
        if (pixels_ > kMostPixels || glyphs_.size() > kMostPixels / 1024) {
            glyphs_.clear();
            pixels_ = 0;
        }
        pixels_ += glyph.Shape.Values.size();
        return glyphs_.emplace(character, std::move(glyph)).first->second;
    }

    Glyph Loaded(FcChar32 character) const {
        Glyph glyph;
        const FT_UInt index = FT_Get_Char_Index(face_.get(), character);
        FT_GlyphSlot slot = face_->glyph;
        if (FT_Load_Glyph(face_.get(), index, FT_LOAD_NO_BITMAP) != 0) return glyph;
        glyph.Advance = Rounded(slot->metrics.horiAdvance);
        // Hinted in both directions, as if for black and white, upright strokes fill whole pixels
        // and small text stays crisp; only the curves get grey. The advance is the other one, which
        // is what the widths are stated by.
        if (FT_Load_Glyph(face_.get(), index, FT_LOAD_NO_BITMAP | FT_LOAD_TARGET_MONO) != 0)
            return glyph;
        if (file_.NeedsWeight) FT_GlyphSlot_Embolden(slot);
        if (file_.NeedsSlant) FT_GlyphSlot_Oblique(slot);
        if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0) return glyph;
        const FT_Bitmap& bitmap = slot->bitmap;
        glyph.Shape = {slot->bitmap_left,
                       -slot->bitmap_top,
                       static_cast<int>(bitmap.width),
                       static_cast<int>(bitmap.rows),
                       {}};
        glyph.Shape.Values.reserve(std::size_t{bitmap.width} * bitmap.rows);
        for (unsigned row = 0; row < bitmap.rows; ++row) {
            const std::uint8_t* first = bitmap.buffer + std::ptrdiff_t{row} * bitmap.pitch;
            glyph.Shape.Values.insert(glyph.Shape.Values.end(), first, first + bitmap.width);
        }
        return glyph;
    }

    Library library_;  // outlives the face
    Face face_;
    FontFile file_;
    int ascent_ = 0;
    int height_ = 0;
    std::vector<Line> lines_;
    mutable std::unordered_map<FcChar32, Glyph> glyphs_;
    mutable std::size_t pixels_ = 0;  // of all shapes
};

}  // namespace

std::shared_ptr<FT_LibraryRec_> NewFontLibrary() {
    FT_Library library = nullptr;
    if (FT_Init_FreeType(&library) != 0) return nullptr;
    return {library, FT_Done_FreeType};
}

std::shared_ptr<const Font> NewScaledFont(std::shared_ptr<FT_LibraryRec_> library,
                                          const FontFile& file,
                                          const FontDescription& description) {
    FT_Face opened = nullptr;
    if (!library || FT_New_Face(library.get(), file.Path.c_str(), file.Index, &opened) != 0)
        return nullptr;
    Face face(opened);
    const auto em = static_cast<FT_UInt>(EmPixels(description));
    if (!FT_IS_SCALABLE(opened) || FT_Set_Pixel_Sizes(opened, 0, em) != 0) return nullptr;
    return std::make_shared<ScaledFont>(std::move(library), std::move(face), file, description);
}

}  // namespace mavrin2::platform
