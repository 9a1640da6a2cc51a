#include "control/view/spectrum.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numbers>
#include <span>

#include "control/editor/wave_stream.h"
#include "control/signal/mul_div.h"

namespace mavrin2::view {
namespace {

constexpr std::int64_t kFrames = Hartley::Size;

// Where the window of a column begins: around the column's own place, at the beginning of a frame.
std::int64_t WindowStart(const ScanRange& range, std::int32_t column, std::int64_t length) {
    const std::int64_t frame = std::int64_t{range.Channels} * 2;
    const std::int64_t position =
        signal::MulDiv(column, static_cast<std::int32_t>(length), range.WaveWidth) +
        range.StartView.Count() - kFrames / 2 * range.Channels;
    return std::max<std::int64_t>(position, 0) / frame * frame;
}

std::int32_t ComputedDecibels(float power) {
    return static_cast<std::int32_t>(10 * std::log10(static_cast<double>(power)));
}

// The level of each power, found without a logarithm: the table has the least power that has each
// level, and the exponent of a power gives the place to look.
class DecibelTable {
public:
    DecibelTable() {
        for (std::int32_t level = 0; level < kLevels; ++level) {
            auto power = static_cast<float>(std::pow(10.0, level / 10.0));
            while (ComputedDecibels(power) >= level)
                power = std::nextafter(power, 0.0f);
            while (ComputedDecibels(power) < level)
                power = std::nextafter(power, 1e30f);
            least_[static_cast<std::size_t>(level)] = power;
        }
    }

    std::int32_t Of(float power, std::int32_t silence) const {
        if (power == 0) return silence;
        if (power < least_[1] || power >= least_[kLevels - 6]) return ComputedDecibels(power);
        // Three levels to each doubling, and a fraction that makes one more at the loudest.
        const std::uint32_t doublings = (std::bit_cast<std::uint32_t>(power) >> 23) - 127;
        const std::uint32_t level = doublings * 3;
        const float* least = &least_[level];
        return static_cast<std::int32_t>(level) + (power >= least[1]) + (power >= least[2]) +
               (power >= least[3]) + (power >= least[4]);
    }

private:
    static constexpr std::int32_t kLevels = 130;
    std::array<float, kLevels> least_;
};

void MakeRoom(SpectrumTable& table, std::int32_t waveWidth) {
    for (auto& levels : table.Levels) {
        levels.resize(SpectrumTable::Bins);
        for (SpectrumTable::Row& row : levels)
            row.resize(static_cast<std::size_t>(ViewData::ColumnsFor(waveWidth)));
    }
}

}  // namespace

SpectrumAnalyzer::SpectrumAnalyzer() {
    for (std::size_t i = 0; i < Hartley::Size; ++i) {
        const double sine = std::sin(static_cast<double>(i) * std::numbers::pi / Hartley::Size);
        window_[i] = static_cast<float>(sine * sine);
    }
}

bool SpectrumAnalyzer::ComputeSpectrum(platform::FileSystem& files, const ScanRange& range,
                                       SpectrumTable& table) const {
    editor::WaveStream stream(files);
    if (!stream.Open(range.WorkFile, editor::WaveStream::Mode::Read) ||
        !stream.Seek(range.StartView.Count()))
        return false;
    const std::int64_t frame = std::int64_t{range.Channels} * 2;
    if (range.EndView == range.StartView) return true;
    const std::int64_t length =
        std::min<std::int64_t>((range.EndView - range.StartView).Count() + frame,
                               std::numeric_limits<std::int32_t>::max());

    MakeRoom(table, range.WaveWidth);
    // What the file does not have at its end stays from the column before.
    Frames window(static_cast<std::size_t>(kFrames * range.Channels));
    std::vector<Frames> windows;
    std::int32_t column = 0;
    for (bool more = true; more;) {
        windows.clear();
        while (windows.size() < Hartley::Batch &&
               column + static_cast<std::int32_t>(windows.size()) < range.WaveWidth) {
            const std::int32_t next = column + static_cast<std::int32_t>(windows.size());
            if (!stream.Seek(WindowStart(range, next, length))) break;
            const auto read = stream.Read(std::as_writable_bytes(std::span(window)));
            if (!read || *read < 1) break;
            windows.push_back(window);
        }
        more = windows.size() == Hartley::Batch;
        Analyze(windows, range.Channels, static_cast<std::size_t>(column), table);
        column += static_cast<std::int32_t>(windows.size());
    }
    return true;
}

void SpectrumAnalyzer::ComputeSpectrumBlock(std::span<const std::int16_t> samples,
                                            std::int32_t channels, std::int32_t waveWidth,
                                            SpectrumTable& table) const {
    constexpr std::int32_t kSilence = 0;
    MakeRoom(table, waveWidth);
    const auto count = static_cast<std::int32_t>(samples.size());
    const std::int64_t step = std::int64_t{channels} * 2;
    std::vector<Frames> windows;
    for (std::int32_t column = 0; column < waveWidth;) {
        windows.clear();
        for (; windows.size() < Hartley::Batch &&
               column + static_cast<std::int32_t>(windows.size()) < waveWidth;) {
            const std::int32_t next = column + static_cast<std::int32_t>(windows.size());
            const std::int64_t place =
                signal::MulDiv(next, count, waveWidth) - kFrames / 2 * channels;
            const auto start =
                static_cast<std::size_t>(std::max<std::int64_t>(place, 0) / step * step);
            Frames window(static_cast<std::size_t>(kFrames * channels));
            const auto rest = samples.subspan(std::min(start, samples.size()));
            std::ranges::copy(rest.first(std::min(rest.size(), window.size())), window.begin());
            windows.push_back(std::move(window));
        }
        Analyze(windows, channels, static_cast<std::size_t>(column), table, kSilence);
        column += static_cast<std::int32_t>(windows.size());
    }
}

void SpectrumAnalyzer::Analyze(const std::vector<Frames>& windows, std::int32_t channels,
                               std::size_t column, SpectrumTable& table,
                               std::int32_t silence) const {
    for (std::size_t channel = 0; channel < static_cast<std::size_t>(channels); ++channel) {
        Hartley::Values values{};
        for (std::size_t w = 0; w < windows.size(); ++w)
            for (std::size_t i = 0; i < Hartley::Size; ++i)
                values[i][w] = static_cast<float>(
                                   windows[w][i * static_cast<std::size_t>(channels) + channel]) *
                               window_[i];
        hartley_.Transform(values);
        static const DecibelTable decibels;
        auto& levels = table.Levels[channel];
        for (std::size_t w = 0; w < windows.size(); ++w) {
            const float constant = values[0][w];
            levels[0][column + w] = decibels.Of(2 * constant * constant / Hartley::Size, silence);
            for (std::size_t k = 1; k < SpectrumTable::Bins; ++k) {
                const float here = values[k][w];
                const float there = values[Hartley::Size - k][w];
                levels[k][column + w] = decibels.Of(
                    (here * here + there * there) / static_cast<float>(SpectrumTable::Bins),
                    silence);
            }
        }
    }
}

}  // namespace mavrin2::view
