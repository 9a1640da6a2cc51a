#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "control/signal/quantity.h"
#include "control/view/view_data.h"

namespace mavrin2::view {

using signal::Bytes;

// Lowest and highest values of a whole long document, in equal stretches: wide views are made of it
// without reading the work file. Short documents have none.
struct OverviewSummary {
    static constexpr std::int64_t ValuesPerFactor = 3'000'000;

    bool Valid = false;
    std::int32_t Length = 0;  // entries
    std::array<std::vector<std::int32_t>, 2> Low;
    std::array<std::vector<std::int32_t>, 2> High;

    // How many entries each column has in a view of the whole document; below 2 it takes no
    // summary.
    static std::int64_t FactorOf(Bytes total) {
        const std::int64_t values = total.Count() / 2;
        return (values + ValuesPerFactor - 1) / ValuesPerFactor;
    }

    // Valid from here on; entries keep what they had, new ones are 0. Throws std::bad_alloc.
    void Resize(std::int32_t length, std::int32_t channels);
    // No sample has reached any entry.
    void Clear();
    void Free() { *this = OverviewSummary(); }
};

// Condenses the entries `first` … `end` − 1 into peak columns. Nothing for no entries.
void ScanSummary(const OverviewSummary& summary, std::int64_t first, std::int64_t end,
                 std::int32_t channels, std::int32_t waveWidth, ViewData& data);

// Puts samples into the entries of a summary that has been prepared.
class SummaryFiller {
public:
    // The document will have `total` bytes; one frame of each `stride` is looked at.
    SummaryFiller(OverviewSummary& summary, std::int32_t channels, Bytes total, std::int64_t stride)
        : summary_(summary), channels_(channels), total_(total.Count()), stride_(stride) {}

    // Samples that begin `before` bytes into the document. The first frame that is looked at is
    // `first`.
    void Add(std::span<const std::int16_t> samples, std::int64_t before, std::int64_t first = 0);

    // The last entry that a sample has reached, −1 for none.
    std::int64_t LastEntry() const { return lastEntry_; }

private:
    template <std::int64_t Channels>
    void AddFrames(std::span<const std::int16_t> samples, std::int64_t before, std::int64_t first);

    OverviewSummary& summary_;
    std::int32_t channels_;
    std::int64_t total_;
    std::int64_t stride_;
    std::int64_t lastEntry_ = -1;
};

}  // namespace mavrin2::view
