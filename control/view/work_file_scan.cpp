#include "control/view/work_file_scan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>
#include <span>
#include <vector>

#include "control/editor/wave_stream.h"
#include "control/view/peak_lanes.h"

namespace mavrin2::view {
namespace {

constexpr std::int64_t kFramesPerColumn = 500;

// What of one column is in a chunk: some looks, `stride` samples apart.
struct ColumnRun {
    const std::int16_t* First;
    std::int64_t Looks;
    std::size_t Column;
};

class Scan {
public:
    Scan(const ScanRange& range, ViewData& data) : range_(range), data_(data) {
        const std::int64_t frame = std::int64_t{range.Channels} * 2;
        const std::int64_t shown = (range.EndView - range.StartView).Count();
        scale_ = static_cast<double>(range.WaveWidth) / static_cast<double>(shown);
        step_ = std::max<std::int64_t>(
            (shown + frame) / range.WaveWidth / (frame * kFramesPerColumn) * frame, 1);
    }

    // One chunk of samples that begins `before` bytes into the range.
    void Add(std::span<const std::int16_t> samples, std::int64_t before) {
        if (range_.Channels == 2)
            AddFrames<2>(samples, before);
        else
            AddFrames<1>(samples, before);
    }

private:
    std::int64_t ColumnAt(std::int64_t position) const {
        return static_cast<std::int64_t>(static_cast<double>(position) * scale_ + 0.5);
    }

    template <std::int64_t Channels>
    void AddFrames(std::span<const std::int16_t> samples, std::int64_t before) {
        const auto size = static_cast<std::int64_t>(samples.size());
        const std::int64_t stride = Channels * step_;
        const std::int64_t looks = size < Channels ? 0 : (size - Channels) / stride + 1;
        std::array<ColumnRun, kLanes> runs;
        std::size_t count = 0;
        const auto columnOf = [&](std::int64_t look) {
            return ColumnAt(before + look * stride * 2);
        };
        for (std::int64_t look = 0; look < looks;) {
            const std::int64_t column = columnOf(look);
            if (column >= data_.Columns()) break;
            // Near the end of the column, and then exactly there.
            const double next = (static_cast<double>(column) + 0.5) / scale_;
            auto end = std::clamp(static_cast<std::int64_t>((next - static_cast<double>(before)) /
                                                            static_cast<double>(stride * 2)),
                                  look + 1, looks);
            while (end > look + 1 && columnOf(end - 1) > column)
                --end;
            while (end < looks && columnOf(end) <= column)
                ++end;
            runs[count++] = {samples.data() + look * stride, end - look,
                             static_cast<std::size_t>(column)};
            if (count == kLanes) {
                AddColumns<Channels>(runs, stride);
                count = 0;
            }
            look = end;
        }
        if (count > 0) AddColumns<Channels>(std::span(runs).first(count), stride);
    }

    // Follows up to eight columns, those of the left channel by their soft peaks.
    template <std::int64_t Channels>
    void AddColumns(std::span<const ColumnRun> runs, std::int64_t stride) {
        FollowLanes<SoftPeakLanes>(runs, stride, 0);
        if constexpr (Channels == 2) FollowLanes<PeakLanes>(runs, stride, 1);
    }

    template <class Peaks>
    void FollowLanes(std::span<const ColumnRun> runs, std::int64_t stride, std::size_t channel) {
        auto& lows = data_.Low[channel];
        auto& highs = data_.High[channel];
        Peaks peaks{};
        std::array<const std::int16_t*, kLanes> samples;
        std::int64_t shortest = runs[0].Looks;
        std::int64_t longest = 0;
        for (std::size_t lane = 0; lane < kLanes; ++lane) {
            // Lanes without a column follow the last one.
            const ColumnRun& run = runs[std::min(lane, runs.size() - 1)];
            samples[lane] = run.First + channel;
            shortest = std::min(shortest, run.Looks);
            longest = std::max(longest, run.Looks);
            const bool empty = highs[run.Column] == ViewData::EmptyColumn;
            const std::int16_t first = *samples[lane];
            peaks.Low[lane] = empty ? first : static_cast<std::int16_t>(lows[run.Column]);
            peaks.High[lane] = empty ? first : static_cast<std::int16_t>(highs[run.Column]);
        }
        for (std::int64_t offset = 0; offset < shortest * stride; offset += stride)
            peaks.Add(Lanes16{samples[0][offset], samples[1][offset], samples[2][offset],
                              samples[3][offset], samples[4][offset], samples[5][offset],
                              samples[6][offset], samples[7][offset]});
        for (std::int64_t look = shortest; look < longest; ++look) {
            // A lane that has ended sees its own peak again, which changes nothing.
            Lanes16 values{};
            for (std::size_t lane = 0; lane < kLanes; ++lane) {
                const ColumnRun& run = runs[std::min(lane, runs.size() - 1)];
                values[lane] = look < run.Looks ? samples[lane][look * stride] : peaks.High[lane];
            }
            peaks.Add(values);
        }
        for (std::size_t lane = 0; lane < runs.size(); ++lane) {
            lows[runs[lane].Column] = peaks.Low[lane];
            highs[runs[lane].Column] = peaks.High[lane];
        }
    }

    const ScanRange& range_;
    ViewData& data_;
    double scale_;
    std::int64_t step_;
};

}  // namespace

bool ScanWorkFile(platform::FileSystem& files, const ScanRange& range, ViewData& data) {
    editor::WaveStream stream(files);
    if (!stream.Open(range.WorkFile, editor::WaveStream::Mode::Read) ||
        !stream.Seek(range.StartView.Count()))
        return false;
    data.Clear(range.WaveWidth);
    const std::int64_t frame = std::int64_t{range.Channels} * 2;
    if (range.EndView <= range.StartView || range.WaveWidth < 1) return true;
    const std::int64_t length = (range.EndView - range.StartView).Count() + frame;
    std::vector<std::int16_t> chunk;
    try {
        chunk.resize(static_cast<std::size_t>(std::min(range.Frequency * frame, length) / 2));
    } catch (const std::bad_alloc&) {
        return false;
    }
    Scan scan(range, data);
    for (std::int64_t done = 0; done < length;) {
        const auto wanted = static_cast<std::size_t>(
            std::min<std::int64_t>(static_cast<std::int64_t>(chunk.size()) * 2, length - done));
        const auto read = stream.Read(std::as_writable_bytes(std::span(chunk)).first(wanted));
        if (!read || *read == 0) break;
        scan.Add(std::span(chunk).first(*read / 2), done);
        done += *read;
    }
    return true;
}

}  // namespace mavrin2::view
