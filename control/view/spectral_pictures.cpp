#include "control/view/spectral_pictures.h"

#include <algorithm>
#include <vector>

#include "control/view/hls.h"

namespace mavrin2::view {
namespace {

constexpr std::int32_t kShades = 100;
constexpr std::int32_t kSaturation = 140;
constexpr std::int32_t kDarkest = 20;  // decibels that have the first shade

// A point's value is its shade, and this where the shade of what is not selected, which is rounded
// to the nearest one, is the next.
constexpr std::uint8_t kNext = 0x80;

std::uint32_t Shade(double hue, std::int32_t lightness) {
    return ToPixel(FromHls({static_cast<std::int32_t>(hue), lightness, kSaturation})).Value;
}

// Which bin, and how far on the way to the next, a row shows; −1 for none.
struct RowSource {
    std::int32_t Bin = -1;
    std::int32_t Part = 0;
};

std::vector<RowSource> RowSources(std::int32_t height, double rowsPerBin) {
    std::vector<RowSource> rows(static_cast<std::size_t>(height));
    for (std::int32_t bin = 0; bin < static_cast<std::int32_t>(SpectrumTable::Bins); ++bin)
        for (std::int32_t part = 0; part < rowsPerBin; ++part) {
            const auto row = static_cast<std::int32_t>(bin * rowsPerBin + part);
            if (row < height) rows[static_cast<std::size_t>(row)] = {bin, part};
        }
    return rows;
}

// Limited before it is truncated, and without a branch: that is done for several points at once.
std::int32_t ShadeOf(double level) {
    constexpr double kLast = kShades - 1;
    const double positive = level > 0 ? level : 0;
    return static_cast<std::int32_t>(positive < kLast ? positive : kLast);
}

std::uint8_t PointOf(double level) {
    const std::int32_t shade = ShadeOf(level);
    return static_cast<std::uint8_t>(shade + (ShadeOf(level + 0.5) - shade) * kNext);
}

}  // namespace

std::array<SpectralPictures::Palette, 3> SpectralPictures::PalettesOf(const ColorSettings& colors) {
    std::array<Palette, 3> palettes{};
    auto& [normal, selected, inactive] = palettes;
    const auto hue = [](std::int32_t low, std::int32_t high, std::int32_t i) {
        return low + 100 - (static_cast<double>(high) - low) * i / 100;
    };
    for (std::int32_t i = 0; i < kShades; ++i) {
        const auto shade = static_cast<std::size_t>(i);
        const double shown = hue(colors.SpectralLow, colors.SpectralHigh, i);
        const double marked = hue(colors.SpectralSelectLow, colors.SpectralSelectHigh, i);
        normal[shade] = Shade(shown, static_cast<std::int32_t>(1.5 * i + 10));
        selected[shade] = selected[shade | kNext] = Shade(marked, 120 - i);
        inactive[shade] = inactive[shade | kNext] = Shade(shown, i / 2);
    }
    for (std::size_t shade = 0; shade + 1 < kShades; ++shade)
        normal[shade | kNext] = normal[shade + 1];
    return palettes;
}

void SpectralPictures::Clear() {
    channels_.fill({});
}

void SpectralPictures::Build(const SpectrumTable& table, const Geometry& geometry,
                             const editor::ChannelSwitches& switches, std::int32_t channels,
                             const ColorSettings& colors) {
    if (table.Levels[0].empty()) return;
    const std::int32_t visible = switches.VisibleCount;
    const std::int32_t height =
        visible > 0
            ? std::max(
                  (geometry.WaveHeight - 2 * geometry.LaneMargin - (visible > 1 ? 3 : 0)) / visible,
                  0)
            : 0;
    const std::int32_t width =
        std::min(geometry.WaveWidth, static_cast<std::int32_t>(table.Levels[0][0].size()));
    const double rowsPerBin = 2.0 * height / static_cast<double>(Hartley::Size);
    const std::vector<RowSource> sources = RowSources(height, rowsPerBin);
    palettes_ = PalettesOf(colors);

    for (std::size_t channel = 0; channel < static_cast<std::size_t>(channels); ++channel) {
        Shades& picture = channels_[channel];
        if (picture.Width != width || picture.Height != height)
            picture = {width, height,
                       std::vector<std::uint8_t>(static_cast<std::size_t>(width) *
                                                 static_cast<std::size_t>(height))};
        std::vector<double> slopes(static_cast<std::size_t>(width));
        std::int32_t slopesOf = -1;
        for (std::int32_t row = 0; row < height; ++row) {
            const RowSource source = sources[static_cast<std::size_t>(row)];
            if (source.Bin < 0) continue;
            const auto bin = static_cast<std::size_t>(source.Bin);
            const SpectrumTable::Row& here = table.Levels[channel][bin];
            if (slopesOf != source.Bin) {
                const SpectrumTable::Row& next =
                    table.Levels[channel][std::min(bin + 1, SpectrumTable::Bins - 1)];
                for (std::size_t x = 0; x < slopes.size(); ++x)
                    slopes[x] = (next[x] - here[x]) / rowsPerBin;
                slopesOf = source.Bin;
            }
            // The lowest frequency is at the bottom.
            std::uint8_t* const points = picture.Row(height - 1 - row);
            for (std::size_t x = 0; x < slopes.size(); ++x)
                points[x] = PointOf(here[x] - kDarkest + source.Part * slopes[x]);
        }
    }
}

void SpectralPictures::Draw(Surface& surface, std::size_t channel, Kind kind, const Rectangle& area,
                            std::int32_t from, std::int32_t to) const {
    const Shades& picture = channels_[channel];
    const Palette& palette = palettes_[static_cast<std::size_t>(kind)];
    const Rectangle drawn{area.Left + std::max(from, 0), area.Top,
                          area.Left + std::min(to, picture.Width),
                          area.Top + std::min(area.Height(), picture.Height)};
    surface.Plot(drawn, [&](std::int32_t y, std::int32_t left, std::span<std::uint32_t> points) {
        const std::uint8_t* const shades = picture.Row(y - area.Top) + (left - area.Left);
        std::transform(shades, shades + points.size(), points.begin(),
                       [&](std::uint8_t point) { return palette[point]; });
    });
}

}  // namespace mavrin2::view
