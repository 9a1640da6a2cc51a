#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "control/view/hartley.h"
#include "control/view/work_file_scan.h"
#include "platform/files.h"

namespace mavrin2::view {

// The level of each frequency in each column and channel, in decibels of power, truncated.
struct SpectrumTable {
    static constexpr std::size_t Bins = Hartley::Size / 2;
    static constexpr std::int32_t Silence = -20;

    using Row = std::vector<std::int32_t>;   // one bin in all columns
    std::array<std::vector<Row>, 2> Levels;  // empty before the first analysis
};

// Analyses sound in windows of 64 frames, one for each column.
class SpectrumAnalyzer {
public:
    SpectrumAnalyzer();

    // False when the work file could not be read: the table is as it was.
    bool ComputeSpectrum(platform::FileSystem& files, const ScanRange& range,
                         SpectrumTable& table) const;
    // Of a block of interleaved samples, spread over all columns; silence comes after it.
    void ComputeSpectrumBlock(std::span<const std::int16_t> samples, std::int32_t channels,
                              std::int32_t waveWidth, SpectrumTable& table) const;

private:
    using Frames = std::vector<std::int16_t>;  // one window, interleaved

    // `silence` is the level of what has no power at all.
    void Analyze(const std::vector<Frames>& windows, std::int32_t channels, std::size_t column,
                 SpectrumTable& table, std::int32_t silence = SpectrumTable::Silence) const;

    Hartley hartley_;
    std::array<float, Hartley::Size> window_;  // Hann's
};

}  // namespace mavrin2::view
