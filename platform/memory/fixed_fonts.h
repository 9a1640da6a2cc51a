#pragma once

#include <memory>

#include "platform/text.h"

namespace mavrin2::platform {

// Text as any system can measure and draw it alike: each byte is a cell of `width` × `height`
// pixels whatever the description, and looks like a box, one pixel inside of its cell.
class FixedFonts final : public FontLoader {
public:
    explicit FixedFonts(int width = 6, int height = 14) : width_(width), height_(height) {}

    std::shared_ptr<const Font> Load(const FontDescription& description) override;

private:
    int width_;
    int height_;
};

}  // namespace mavrin2::platform
