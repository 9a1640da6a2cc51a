#include "control/view/spectral_pictures.h"

#include <algorithm>
#include <vector>

#include "control/view/hls.h"

namespace mavrin2::view {
namespace {

constexpr std::int32_t kShades = 100;
constexpr std::int32_t kSaturation = 140;
constexpr std::int32_t kDarkest = 20;  // decibels that have the first shade

using SpectralPalette = std::array<Pixel, kShades>;

struct Palettes {
    SpectralPalette Normal, Selected, Inactive;
};

Pixel Shade(double hue, std::int32_t lightness) {
    return ToPixel(FromHls({static_cast<std::int32_t>(hue), lightness, kSaturation}));
}

Palettes PalettesOf(const ColorSettings& colors) {
    Palettes palettes;
    const auto hue = [](std::int32_t low, std::int32_t high, std::int32_t i) {
        return low + 100 - (static_cast<double>(high) - low) * i / 100;
    };
    for (std::int32_t i = 0; i < kShades; ++i) {
        const double normal = hue(colors.SpectralLow, colors.SpectralHigh, i);
        const double selected = hue(colors.SpectralSelectLow, colors.SpectralSelectHigh, i);
        const auto shade = static_cast<std::size_t>(i);
        palettes.Normal[shade] = Shade(normal, static_cast<std::int32_t>(1.5 * i + 10));
        palettes.Selected[shade] = Shade(selected, 120 - i);
        palettes.Inactive[shade] = Shade(normal, i / 2);
    }
    return palettes;
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

std::size_t ShadeOf(double level) {
    return static_cast<std::size_t>(std::clamp(static_cast<std::int32_t>(level), 0, kShades - 1));
}

}  // namespace

void SpectralPictures::Clear() {
    for (auto& channel : pictures_)
        channel.fill(Surface());
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
    const Palettes palettes = PalettesOf(colors);

    for (std::size_t channel = 0; channel < static_cast<std::size_t>(channels); ++channel) {
        auto& [normal, selected, inactive] = pictures_[channel];
        for (Surface* picture : {&normal, &selected, &inactive})
            if (picture->Width() != width || picture->Height() != height)
                *picture = Surface(width, height);
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
            const std::int32_t y = height - 1 - row;
            std::uint32_t* const normalRow = normal.Row(y);
            std::uint32_t* const selectedRow = selected.Row(y);
            std::uint32_t* const inactiveRow = inactive.Row(y);
            for (std::size_t x = 0; x < slopes.size(); ++x) {
                const double level = here[x] - kDarkest + source.Part * slopes[x];
                const std::size_t shade = ShadeOf(level);
                normalRow[x] = palettes.Normal[ShadeOf(level + 0.5)].Value;
                selectedRow[x] = palettes.Selected[shade].Value;
                inactiveRow[x] = palettes.Inactive[shade].Value;
            }
        }
    }
}

}  // namespace mavrin2::view
