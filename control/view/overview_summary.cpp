#include "control/view/overview_summary.h"

#include <algorithm>
#include <cstring>

#include "control/view/peak_lanes.h"

namespace mavrin2::view {
namespace {

// An empty place takes whatever comes.
void Raise(std::int32_t& highest, std::int32_t value) {
    if (highest == ViewData::EmptyColumn || value > highest) highest = value;
}

void Lower(std::int32_t& lowest, std::int32_t value) {
    if (lowest == ViewData::EmptyColumn || value < lowest) lowest = value;
}

// Of frames that lie `stride` samples apart: each lane is a channel, or any other value
// with one load. Frames at the very end are taken alone.
PeakLanes PeaksOf(std::span<const std::int16_t> samples, std::int64_t looks, std::size_t stride,
                  std::size_t channels) {
    const auto frame = [&](std::size_t at) {
        Lanes16 values{};
        std::memcpy(&values, &samples[at], channels * sizeof(std::int16_t));
        return values;
    };
    PeakLanes peaks{frame(0), frame(0)};
    const auto count = static_cast<std::size_t>(looks);
    std::size_t look = 1;
    for (; look < count && look * stride + kLanes <= samples.size(); ++look) {
        Lanes16 values;
        std::memcpy(&values, &samples[look * stride], sizeof values);
        peaks.Add(values);
    }
    for (; look < count; ++look)
        peaks.Add(frame(look * stride));
    return peaks;
}

}  // namespace

void OverviewSummary::Resize(std::int32_t length, std::int32_t channels) {
    for (std::size_t channel = 0; channel < 2; ++channel) {
        const std::size_t entries =
            channel < static_cast<std::size_t>(channels) ? static_cast<std::size_t>(length) : 0;
        Low[channel].resize(entries);
        High[channel].resize(entries);
    }
    Length = length;
    Valid = true;
}

void OverviewSummary::Clear() {
    for (auto* entries : {&Low, &High})
        for (auto& channel : *entries)
            std::fill(channel.begin(), channel.end(), ViewData::EmptyColumn);
}

void ScanSummary(const OverviewSummary& summary, std::int64_t first, std::int64_t end,
                 std::int32_t channels, std::int32_t waveWidth, ViewData& data) {
    if (end - first < 1) return;
    data.ClearPeaks(waveWidth);
    for (std::int64_t i = first; i < end; ++i) {
        const std::int64_t column = (i - first) * waveWidth / (end - first);
        for (std::size_t channel = 0; channel < static_cast<std::size_t>(channels); ++channel) {
            const auto entry = static_cast<std::size_t>(i);
            if (entry >= summary.High[channel].size()) continue;
            Raise(data.High[channel][static_cast<std::size_t>(column)],
                  summary.High[channel][entry]);
            Lower(data.Low[channel][static_cast<std::size_t>(column)], summary.Low[channel][entry]);
        }
    }
}

void SummaryFiller::Add(std::span<const std::int16_t> samples, std::int64_t before,
                        std::int64_t first) {
    if (total_ < 1) return;
    if (channels_ == 2)
        AddFrames<2>(samples, before, first);
    else
        AddFrames<1>(samples, before, first);
}

template <std::int64_t Channels>
void SummaryFiller::AddFrames(std::span<const std::int16_t> samples, std::int64_t before,
                              std::int64_t first) {
    const std::int64_t frames = static_cast<std::int64_t>(samples.size()) / Channels;
    const std::int64_t length = summary_.Length;
    const std::int64_t frame = Channels * 2;
    for (std::int64_t at = first; at < frames;) {
        const std::int64_t entry = std::min((before + at * frame) * length / total_, length - 1);
        // The first frame of the next entry, and the next one that is looked at.
        std::int64_t end = frames;
        if (entry < length - 1) {
            const std::int64_t next = ((entry + 1) * total_ + length - 1) / length - before;
            end = std::clamp((next + frame - 1) / frame, at + 1, frames);
        }
        const std::int64_t looks = (end - at + stride_ - 1) / stride_;
        const PeakLanes peaks =
            PeaksOf(samples.subspan(static_cast<std::size_t>(at * Channels)), looks,
                    static_cast<std::size_t>(stride_ * Channels), Channels);
        const auto place = static_cast<std::size_t>(entry);
        for (std::size_t channel = 0; channel < Channels; ++channel) {
            Raise(summary_.High[channel][place], peaks.High[channel]);
            Lower(summary_.Low[channel][place], peaks.Low[channel]);
        }
        lastEntry_ = entry;
        at += looks * stride_;
    }
}

}  // namespace mavrin2::view
