#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/pixels.h"

namespace mavrin2::platform {

// A font as an automation font object describes it.
struct FontDescription {
    std::string Family = "Arial";  // UTF-8
    std::int64_t Size = 80000;     // ten-thousandths of a point, at 96 dots per inch
    int Weight = 400;              // 400 normal, 700 bold
    int CharacterSet = 1;          // 1: whatever the font has
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;

    bool operator==(const FontDescription&) const = default;
};

// The height of its letters' square in pixels, at least 1. What no screen could show is limited.
int EmPixels(const FontDescription& description);

// Of one line of text, in pixels: its advance, and the height of the font's cells.
struct TextExtent {
    int Width = 0;
    int Height = 0;
};

// A font in one size. Used on the thread of the control that loaded it.
class Font {
public:
    virtual ~Font() = default;

    // Zero for what cannot be measured. `text` is UTF-8.
    virtual TextExtent Measure(std::string_view text) const = 0;

    // Draws one line whose cell has its upper left corner at (x, y). `color` is 0x00RRGGBB; what
    // lies outside of the pixels is left out, and what is between the strokes stays.
    virtual void Draw(const Pixels& target, int x, int y, std::string_view text,
                      std::uint32_t color) const = 0;
};

class FontLoader {
public:
    virtual ~FontLoader() = default;

    // The nearest font that the system has: never null. A system without any font gives one that
    // measures 0 and draws nothing.
    virtual std::shared_ptr<const Font> Load(const FontDescription& description) = 0;
};

}  // namespace mavrin2::platform
