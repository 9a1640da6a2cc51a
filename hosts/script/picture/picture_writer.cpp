#include "hosts/script/picture/picture_writer.h"

#include <algorithm>

#include "hosts/script/commands/command.h"
#include "hosts/script/picture/sound_picture.h"
#include "hosts/script/picture/transparency.h"
#include "platform/interrupt.h"

namespace mavrin2::script {
namespace {

constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kWhite = 0xFFFFFF;

// 0x00RRGGBB of a colour property.
std::uint32_t ColorIn(const binding::LateBound& colors, std::string_view property) {
    const auto color = static_cast<std::uint32_t>(colors.Number(property));
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

}  // namespace

void PictureWriter::Write(IDispatch& control, int height, const std::string& name) {
    const binding::LateBound colors =
        binding::LateBound(automation::ComPtr<IDispatch>(&control)).Part("Colors");
    if (caption_) {
        const int rows = caption_->Height();
        WriteBands(colors, rows, rows, [&](int, const platform::Pixels& pixels) {
            caption_->Draw(pixels, name, ColorIn(colors, "Scales"), ColorIn(colors, "Font"));
        });
        height -= rows;
    }
    constexpr int kPixels = 1 << 19;
    SoundPicture picture(control, width_, height);
    WriteBands(colors, height, std::max(kPixels / width_, 1),
               [&](int top, const platform::Pixels& rows) { picture.Draw(top, rows); });
}

void PictureWriter::WriteBands(const binding::LateBound& colors, int height, int most,
                               const DrawRows& draw) {
    const bool transparent = colors_.HasTransparent();
    bool black = false;
    for (int top = 0; top < height; top += most) {
        if (platform::Interrupted()) throw Interruption();
        const int count = std::min(most, height - top);
        const auto rowsOf = [&](std::vector<std::uint32_t>& pixels) {
            pixels.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(count));
            return platform::Pixels{pixels.data(), width_, count, width_};
        };
        const platform::Pixels rows = rowsOf(band_);
        if (!transparent) {
            draw(top, rows);
        } else {
            // Changing the colour draws again: it stays as it is from one band to the next.
            const platform::Pixels white = rowsOf(overWhite_);
            for (int pass = 0; pass < 2; ++pass) {
                if (pass == 1 || top == 0) {
                    black = !black;
                    colors_.PutTransparent(colors, black ? kBlack : kWhite);
                }
                draw(top, black ? rows : white);
            }
            FindTransparency(rows, white);
        }
        file_.Write(rows);
    }
}

}  // namespace mavrin2::script
