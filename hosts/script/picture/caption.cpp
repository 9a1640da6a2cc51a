#include "hosts/script/picture/caption.h"

#include <algorithm>
#include <cstddef>

#include "platform/ports.h"

namespace mavrin2::script {
namespace {

constexpr int kMargin = 3;  // pixels on each side of the text

std::shared_ptr<const platform::Font> LoadFont(std::int32_t points) {
    platform::FontDescription bold;
    bold.Size = std::int64_t{points} * 10000;
    bold.Weight = 700;
    return platform::SystemPorts().Fonts->Load(bold);
}

// The beginning of a name with an ellipsis, as much as is no wider than `width`.
std::string Shortened(const platform::Font& font, const std::string& name, int width) {
    if (font.Measure(name).Width <= width) return name;
    std::string start = name;
    const auto text = [&] { return start + "\u2026"; };
    while (!start.empty() && font.Measure(text()).Width > width) {
        const auto continues = [&] { return (start.back() & 0xC0) == 0x80; };  // a character
        while (start.size() > 1 && continues())
            start.pop_back();
        start.pop_back();
    }
    return text();
}

}  // namespace

Caption::Caption(std::int32_t points)
    : font_(LoadFont(points)), height_(font_->Measure("Ag").Height + 2 * kMargin) {}

void Caption::Draw(const platform::Pixels& pixels, const std::string& name,
                   std::uint32_t background, std::uint32_t text) const {
    for (int y = 0; y < pixels.Height; ++y)
        std::fill_n(pixels.Data + static_cast<std::ptrdiff_t>(y) * pixels.Stride, pixels.Width,
                    background);
    font_->Draw(pixels, 2 * kMargin, kMargin, Shortened(*font_, name, pixels.Width - 4 * kMargin),
                text);
}

}  // namespace mavrin2::script
