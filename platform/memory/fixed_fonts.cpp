#include "platform/memory/fixed_fonts.h"

#include <algorithm>
#include <cstddef>

#include "platform/coverage.h"

namespace mavrin2::platform {
namespace {

class FixedFont final : public Font {
public:
    FixedFont(int width, int height) : width_(width), height_(height) {
        box_ = {1, 1, std::max(width - 2, 0), std::max(height - 2, 0), {}};
        box_.Values.assign(static_cast<std::size_t>(box_.Width) * box_.Height, 0xFF);
    }

    TextExtent Measure(std::string_view text) const override {
        return {static_cast<int>(text.size()) * width_, height_};
    }
    void Draw(const Pixels& target, int x, int y, std::string_view text,
              std::uint32_t color) const override {
        for (const char c : text) {
            if (c != ' ') Blend(target, x, y, box_, color);
            x += width_;
        }
    }

private:
    int width_;
    int height_;
    Coverage box_;
};

}  // namespace

std::shared_ptr<const Font> FixedFonts::Load(const FontDescription&) {
    return std::make_shared<FixedFont>(width_, height_);
}

}  // namespace mavrin2::platform
