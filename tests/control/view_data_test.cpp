#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <numbers>
#include <random>

#include "control/view/block_scan.h"
#include "control/view/close_up_curve.h"
#include "control/view/overview_builder.h"
#include "control/view/spectrum.h"
#include "control/view/work_file_scan.h"
#include "platform/memory/memory_file_system.h"
#include "tests/support/control_world.h"

namespace mavrin2::tests {
namespace {

using testing::Each;
using view::Bytes;
using view::ScanRange;
using view::ViewData;

constexpr std::int32_t kEmpty = ViewData::EmptyColumn;

Samples Noise(std::size_t count) {
    std::mt19937 generator(7);
    std::uniform_int_distribution<int> values(-32768, 32767);
    Samples samples(count);
    for (auto& sample : samples)
        sample = static_cast<std::int16_t>(values(generator));
    return samples;
}

class ScanTest : public testing::Test {
protected:
    bool Scan(const Samples& samples, ScanRange range) {
        range.WorkFile = "/sound.wav";
        Files.AddFile(range.WorkFile,
                      WorkFileOf(static_cast<std::uint32_t>(range.Frequency),
                                 static_cast<std::uint16_t>(range.Channels), samples));
        return view::ScanWorkFile(Files, range, Data);
    }

    platform::MemoryFileSystem Files;
    ViewData Data;
};

TEST_F(ScanTest, AveragesPeaksOfTheLeftChannelOnly) {
    const Samples samples = {100, 100, 200, 200, -300, -300, -100, -100, -500, -500, 0, 0};
    ASSERT_TRUE(Scan(samples, {{}, Bytes(0), Bytes(24), 2, 44100, 1}));
    // Frames 0 … 2 round to column 0, the others to column 1.
    EXPECT_EQ(Data.High[0][0], 150);
    EXPECT_EQ(Data.High[1][0], 200);
    EXPECT_EQ(Data.Low[0][0], -300) << "another sign is taken whole";
    EXPECT_EQ(Data.Low[0][1], -300) << "half way from -100 to -500";
    EXPECT_EQ(Data.Low[1][1], -500);
    EXPECT_EQ(Data.High[0][1], 0);
    EXPECT_EQ(Data.High[0][2], kEmpty);
    EXPECT_EQ(Data.Low[1][2999], kEmpty);
}

// What the scan says of every sample that it looks at, one at a time.
ViewData OneByOne(const Samples& samples, const ScanRange& range) {
    ViewData data;
    data.Clear(range.WaveWidth);
    const std::int64_t channels = range.Channels;
    const std::int64_t frame = channels * 2;
    const std::int64_t shown = (range.EndView - range.StartView).Count();
    const std::int64_t length = shown + frame;
    const double scale = static_cast<double>(range.WaveWidth) / static_cast<double>(shown);
    const std::int64_t step =
        std::max<std::int64_t>(length / range.WaveWidth / (frame * 500) * frame, 1);
    const std::int64_t available =
        std::min(length, static_cast<std::int64_t>(samples.size()) * 2 - range.StartView.Count());
    const std::int64_t chunk = std::min(range.Frequency * frame, length);
    const std::int16_t* sound = samples.data() + range.StartView.Count() / 2;
    for (std::int64_t before = 0; before < available; before += chunk) {
        const std::int64_t count = std::min(chunk, available - before) / 2;
        for (std::int64_t i = 0; i < count - channels + 1; i += channels * step) {
            const auto column =
                static_cast<std::size_t>(static_cast<double>(before + 2 * i) * scale + 0.5);
            if (column >= data.Low[0].size()) continue;
            const std::int32_t v = sound[before / 2 + i];
            std::int32_t& high = data.High[0][column];
            std::int32_t& low = data.Low[0][column];
            if (high == kEmpty)
                high = v;
            else if (v > high)
                high = v * high > 0 ? (high + v) / 2 : v;
            if (low == kEmpty)
                low = v;
            else if (v < low)
                low = v * low < 1 ? v : (low + v) / 2;
            if (channels < 2) continue;
            const std::int32_t w = sound[before / 2 + i + 1];
            if (data.High[1][column] == kEmpty || w > data.High[1][column])
                data.High[1][column] = w;
            if (data.Low[1][column] == kEmpty || w < data.Low[1][column]) data.Low[1][column] = w;
        }
    }
    return data;
}

TEST_F(ScanTest, SeesWhatOneWouldSeeSampleBySample) {
    const Samples samples = Noise(100000);
    const ScanRange cases[] = {
        {{}, Bytes(0), Bytes(200000), 2, 1000, 641},
        {{}, Bytes(0), Bytes(200000), 1, 44100, 1},
        {{}, Bytes(0), Bytes(200000), 2, 44100, 7},
        {{}, Bytes(0), Bytes(200000), 1, 3000, 13},
        {{}, Bytes(4002), Bytes(50006), 2, 8000, 500},
        {{}, Bytes(400), Bytes(410), 1, 8000, 700},
        {{}, Bytes(0), Bytes(200000), 2, 8000, 3999},
        {{}, Bytes(199990), Bytes(200000), 2, 8, 300},
    };
    for (const ScanRange& range : cases) {
        SCOPED_TRACE(range.WaveWidth);
        ASSERT_TRUE(Scan(samples, range));
        const ViewData expected = OneByOne(samples, range);
        EXPECT_EQ(Data.High, expected.High);
        EXPECT_EQ(Data.Low, expected.Low);
    }
}

TEST_F(ScanTest, TellsWhatItCannotRead) {
    ASSERT_TRUE(Scan({5, 6}, {{}, Bytes(0), Bytes(4), 1, 8000, 10}));
    EXPECT_FALSE(view::ScanWorkFile(Files, {"/none.wav", Bytes(0), Bytes(4), 1, 8000, 10}, Data));
    EXPECT_EQ(Data.High[0][0], 5) << "and keeps what there was";
    EXPECT_TRUE(Scan({5, 6}, {{}, Bytes(4), Bytes(4), 1, 8000, 10}));
    EXPECT_THAT(Data.High[0], Each(kEmpty));
}

TEST(CloseUpLevelTest, DependsOnBytesPerColumn) {
    struct {
        double Bytes;
        std::int32_t Frequency;
        std::int16_t Level;
    } const cases[] = {{2, 44100, 1},   {39.9, 44100, 1}, {40, 44100, 0},   {20, 8000, 1},
                       {25, 8000, 0},   {24.9, 23000, 1}, {20, 7999, 0},    {11.9, 7999, 1},
                       {0.3, 44100, 2}, {0.1, 44100, 3},  {0.02, 44100, 4}, {0, 44100, 0}};
    for (const auto& c : cases)
        EXPECT_EQ(view::CloseUpLevelOf(c.Bytes, c.Frequency), c.Level) << c.Bytes;
}

class CurveTest : public testing::Test {
protected:
    void Put(std::size_t column, std::int32_t value) {
        Data.Low[0][column] = Data.High[0][column] = value;
    }
    std::int32_t At(std::size_t column) const { return Data.CloseUp[0][column]; }

    ViewData Data;
};

TEST_F(CurveTest, IsAParabolaThroughThreePoints) {
    for (const std::int32_t column : {0, 4, 10})
        Put(column, 3 * column * column - 40 * column + 7);
    for (const auto mode : {view::InterpolationMode::Parabola, view::InterpolationMode::Spline}) {
        view::BuildCloseUpCurve(Data, 1, 12, mode);
        for (std::int32_t column = 0; column <= 12; ++column)
            EXPECT_NEAR(At(static_cast<std::size_t>(column)), 3 * column * column - 40 * column + 7,
                        1);
        EXPECT_EQ(At(13), 0);
    }
}

TEST_F(CurveTest, IsANaturalSplineThroughMore) {
    const std::int32_t values[] = {0, 1000, 0, 500, 0};
    for (std::size_t i = 0; i < 5; ++i)
        Put(i * 10, values[i]);
    view::BuildCloseUpCurve(Data, 1, 40, view::InterpolationMode::Spline);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_NEAR(At(i * 10), values[i], 1) << i;
    // With h = 10: 40 M1 + 10 M2 = -1200, 10 M1 + 40 M2 = 900, so M1 = -38, M2 = 32. Half way the
    // spline is the mean of its ends less h² (M + M') / 16.
    EXPECT_NEAR(At(5), 500 + 38 * 100 / 16, 1);
    EXPECT_NEAR(At(15), 500 - (-38 + 32) * 100 / 16, 1);
    EXPECT_NEAR(At(25), 250 - 32 * 100 / 16, 1);
    // After the last point but one, the parabola through the last three.
    EXPECT_NEAR(At(35), 375, 1);
}

TEST_F(CurveTest, TakesThePeakFartherFromZero) {
    for (std::size_t column : {0, 5, 10})
        Put(column, 100);
    Data.Low[0][5] = -300;
    Data.High[0][0] = 300;
    view::BuildCloseUpCurve(Data, 1, 10, view::InterpolationMode::Parabola);
    EXPECT_EQ(At(0), 300);
    EXPECT_EQ(At(5), -300);
    Data.High[0][5] = 300;
    view::BuildCloseUpCurve(Data, 1, 10, view::InterpolationMode::Parabola);
    EXPECT_EQ(At(5), 300) << "the high one, when both are as far";
}

TEST_F(CurveTest, NeedsThreePoints) {
    Put(2, 100);
    Put(5, 200);
    view::BuildCloseUpCurve(Data, 1, 2999, view::InterpolationMode::Spline);
    EXPECT_THAT(Data.CloseUp[0], Each(0));
    Put(2999, -32768);
    view::BuildCloseUpCurve(Data, 1, 2999, view::InterpolationMode::Spline);
    EXPECT_EQ(At(2999), -32768);
}

TEST(LiveSoundTest, IsSpreadOverAllColumns) {
    ViewData data;
    const Samples block = {1, -1, 5, -5, 3, -3, 9, -9};
    view::ScanBlock(block, 2, 2, data);
    EXPECT_EQ(data.High[0][0], 5);
    EXPECT_EQ(data.Low[0][0], 1);
    EXPECT_EQ(data.Low[1][0], -5);
    EXPECT_EQ(data.High[0][1], 9);
    EXPECT_EQ(data.High[1][2], kEmpty);
    view::ScanBlock(block, 1, 16, data);
    EXPECT_EQ(data.High[0][14], -9);
    EXPECT_EQ(data.High[0][15], kEmpty);
    EXPECT_EQ(view::CloseUpLevelOf(24.5, 44100, view::kLiveLimits), 1);
    EXPECT_EQ(view::CloseUpLevelOf(24.5, 22050, view::kLiveLimits), 0);
    EXPECT_EQ(view::CloseUpLevelOf(59, 44100, view::kLiveLimits), 1);

    // The window of each column begins half a window before it, and silence comes after the block.
    const view::SpectrumAnalyzer analyzer;
    view::SpectrumTable table;
    Samples sound(300);
    std::fill(sound.begin() + 150, sound.end(), std::int16_t{8000});
    analyzer.ComputeSpectrumBlock(sound, 1, 3, table);
    EXPECT_EQ(table.Levels[0][0][0], 0) << "silence";
    EXPECT_EQ(table.Levels[0][0][1], 0);
    EXPECT_GT(table.Levels[0][0][2], 60);
    analyzer.ComputeSpectrumBlock(Samples(10, 100), 2, 3, table);
}

TEST(OverviewFillerTest, DoesNotCareHowSoundIsCutIntoBlocks) {
    const Samples samples = Noise(60001);
    const auto bytes = std::as_bytes(std::span(samples));
    for (const std::int32_t channels : {1, 2}) {
        view::OverviewSummary whole;
        whole.Resize(37, channels);
        whole.Clear();
        const Bytes total(static_cast<std::int64_t>(bytes.size()));
        view::ChunkedFiller all(whole, channels, total, 3, 40000);
        all.Add(bytes);
        view::OverviewSummary pieces = whole;
        pieces.Clear();
        view::ChunkedFiller some(pieces, channels, total, 3, 40000);
        for (std::size_t at = 0, size = 1; at < bytes.size();
             at += size, size = size * 3 % 4001 + 1)
            some.Add(bytes.subspan(at, std::min(size, bytes.size() - at)));
        EXPECT_EQ(pieces.High, whole.High);
        EXPECT_EQ(pieces.Low, whole.Low);
        EXPECT_EQ(some.Seen(), all.Seen());

        // Of the frames that are looked at, counted anew in each chunk.
        const std::int64_t frame = channels * 2;
        std::vector<std::int32_t> high(37, kEmpty);
        for (std::int64_t at = 0; at + frame <= total.Count(); at += frame) {
            if (at % 40000 / frame % 3 != 0) continue;
            std::int32_t& entry = high[static_cast<std::size_t>(at * 37 / total.Count())];
            const std::int32_t value = samples[static_cast<std::size_t>(at / 2)];
            if (entry == kEmpty || value > entry) entry = value;
        }
        EXPECT_EQ(whole.High[0], high);
    }
}

TEST(ScanSummaryTest, TakesThePeaksOfItsEntries) {
    view::OverviewSummary summary;
    summary.Resize(6, 1);
    summary.High[0] = {1, 5, 3, 9, 9, -4};
    summary.Low[0] = {-1, -5, -3, 9, 2, -7};
    ViewData data;
    view::ScanSummary(summary, 1, 5, 1, 2, data);
    EXPECT_EQ(data.High[0][0], 5);
    EXPECT_EQ(data.Low[0][0], -5);
    EXPECT_EQ(data.High[0][1], 9);
    EXPECT_EQ(data.Low[0][1], 2);
    EXPECT_EQ(data.High[0][2], kEmpty);
    view::ScanSummary(summary, 5, 5, 1, 2, data);
    EXPECT_EQ(data.High[0][0], 5) << "nothing to show changes nothing";
    view::ScanSummary(summary, 0, 6, 1, 10000, data);
    EXPECT_EQ(data.High[0][0], 1);
}

TEST_F(ScanTest, AnalysesTheSpectrumAroundEachColumn) {
    // Bin 8 of 64 left, silence right.
    Samples samples(8000);
    for (std::size_t i = 0; i < 4000; ++i)
        samples[2 * i] = static_cast<std::int16_t>(
            std::lround(10000 * std::cos(2 * std::numbers::pi * 8 * static_cast<double>(i) / 64)));
    ScanRange range{"/sound.wav", Bytes(0), Bytes(16000), 2, 8000, 50};
    ASSERT_TRUE(Scan(samples, range));
    view::SpectrumTable table;
    ASSERT_TRUE(view::SpectrumAnalyzer().ComputeSpectrum(Files, range, table));
    // Half of the amplitude through the window, H = 32 · 10000 / 2, cosine and nothing else:
    // 10 log10(2 H² / 32) = 92.04; beside the peak the window gives half of that height.
    EXPECT_EQ(table.Levels[0][8][10], 92);
    EXPECT_EQ(table.Levels[0][7][10], 86);
    EXPECT_EQ(table.Levels[0][9][10], 86);
    EXPECT_LT(table.Levels[0][20][10], 20);
    for (std::size_t bin = 0; bin < view::SpectrumTable::Bins; ++bin) {
        EXPECT_EQ(table.Levels[1][bin][10], view::SpectrumTable::Silence) << bin;
        EXPECT_EQ(table.Levels[0][bin][0], table.Levels[0][bin][8]) << "whole periods apart";
    }
    EXPECT_FALSE(view::SpectrumAnalyzer().ComputeSpectrum(
        Files, {"/none.wav", Bytes(0), Bytes(16000), 2, 8000, 50}, table));
    EXPECT_EQ(table.Levels[0][8][10], 92);
}

}  // namespace
}  // namespace mavrin2::tests
