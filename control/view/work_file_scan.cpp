#include "control/view/work_file_scan.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <span>
#include <vector>

#include "control/editor/wave_stream.h"

namespace mavrin2::view {
namespace {

constexpr std::int64_t kFramesPerColumn = 500;

// The left channel's peaks: a new one is averaged with what there was while both have one sign, so
// that a single spike does not stand for a whole column.
struct SoftPeaks {
    std::int32_t Low;
    std::int32_t High;

    void Add(std::int32_t value) {
        if (value > High) High = value * High > 0 ? (High + value) / 2 : value;
        if (value < Low) Low = value * Low < 1 ? value : (Low + value) / 2;
    }
};

struct Peaks {
    std::int32_t Low;
    std::int32_t High;

    void Add(std::int32_t value) {
        High = std::max(High, value);
        Low = std::min(Low, value);
    }
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
        const auto count = static_cast<std::int64_t>(samples.size());
        const std::int64_t stride = Channels * step_;
        const std::int64_t looks = count < Channels ? 0 : (count - Channels) / stride + 1;
        const auto columnOf = [&](std::int64_t look) {
            return ColumnAt(before + look * stride * 2);
        };
        for (std::int64_t look = 0; look < looks;) {
            const std::int64_t column = columnOf(look);
            if (column >= ViewData::Columns) return;
            // Near the end of the column, and then exactly there.
            const double next = (static_cast<double>(column) + 0.5) / scale_;
            auto end = std::clamp(static_cast<std::int64_t>((next - static_cast<double>(before)) /
                                                            static_cast<double>(stride * 2)),
                                  look + 1, looks);
            while (end > look + 1 && columnOf(end - 1) > column)
                --end;
            while (end < looks && columnOf(end) <= column)
                ++end;
            AddColumn<Channels>(samples.data() + look * stride, end - look, stride,
                                static_cast<std::size_t>(column));
            look = end;
        }
    }

    template <std::int64_t Channels>
    void AddColumn(const std::int16_t* first, std::int64_t looks, std::int64_t stride,
                   std::size_t column) {
        const auto addTo = [&](std::size_t channel, auto peaks) {
            peaks.Low = data_.Low[channel][column];
            peaks.High = data_.High[channel][column];
            const std::int16_t* sample = first + channel;
            std::int64_t left = looks;
            if (peaks.High == ViewData::EmptyColumn) {
                peaks.Low = peaks.High = *sample;
                sample += stride;
                --left;
            }
            for (; left > 0; --left, sample += stride)
                peaks.Add(*sample);
            data_.Low[channel][column] = peaks.Low;
            data_.High[channel][column] = peaks.High;
        };
        addTo(0, SoftPeaks{});
        if constexpr (Channels == 2) addTo(1, Peaks{});
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
    data.Clear();
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
