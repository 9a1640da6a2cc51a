#include <bit>
#include <cmath>
#include <numbers>

#include "companions/dusoro/sound/format_converter.h"
#include "companions/dusoro/sound/sample_blocks.h"
#include "tests/companions/sound_test.h"

namespace mavrin2::dusoro {
namespace {

class ConversionTest : public SoundTest {
protected:
    Samples Converted(const Samples& samples, PcmFormat from, PcmFormat to,
                      std::size_t block = 4096) {
        Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, from.Rate, from.Channels, samples);
        auto reader = Open(In("a.wav"));
        EXPECT_TRUE(files_.ReadAs(reader, to));
        told_ = reader->Description();
        return ReadAll(*reader, block);
    }

    SourceDescription told_;
};

TEST_F(ConversionTest, DeliversTheNearestLengthExactly) {
    const std::tuple<std::int64_t, int, int, std::int64_t> cases[] = {
        {44100, 44100, 22050, 22050}, {44101, 44100, 22050, 22051}, {44099, 44100, 22050, 22050},
        {44100, 44100, 48000, 48000}, {1, 44100, 48000, 1},         {1, 8000, 44100, 6},
        {0, 44100, 48000, 0},         {3, 44100, 8000, 1},          {12345, 11025, 96000, 107494}};
    for (const auto& [frames, from, to, expected] : cases) {
        EXPECT_EQ(FramesAtRate(frames, from, to), expected);
        const Samples out =
            Converted(Noise(static_cast<std::size_t>(frames)), {from, 1}, {to, 1}, 1000);
        EXPECT_EQ(static_cast<std::int64_t>(out.size()), expected) << frames << " at " << from;
        EXPECT_EQ(told_.Frames, expected);
        EXPECT_EQ(told_.SourceRate, from);
    }
    EXPECT_EQ(FramesAtRate(std::int64_t{1} << 41, 44100, 192000),
              static_cast<std::int64_t>(std::llround(std::ldexp(192000.0L / 44100, 41))));
}

TEST_F(ConversionTest, KeepsASineInPlaceAndInLevel) {
    for (const auto& [from, to] : {std::pair{44100, 48000}, std::pair{48000, 22050}}) {
        Samples sine;
        for (int i = 0; i < from; ++i)
            sine.push_back(static_cast<std::int16_t>(
                std::lround(12000 * std::sin(i * 1000.0 * 2 * std::numbers::pi / from))));
        const Samples out = Converted(sine, {from, 1}, {to, 1});
        ASSERT_EQ(out.size(), static_cast<std::size_t>(to));
        double worst = 0;
        for (int i = to / 10; i < to * 9 / 10; ++i)
            worst =
                std::max(worst, std::abs(out[static_cast<std::size_t>(i)] -
                                         12000 * std::sin(i * 1000.0 * 2 * std::numbers::pi / to)));
        EXPECT_LT(worst, 3) << from << " to " << to;
    }
}

TEST_F(ConversionTest, BlocksLeaveNoTrace) {
    const Samples noise = Noise(60'000, 10'000);
    const Samples whole = Converted(noise, {44100, 2}, {32000, 1}, 1'000'000);
    EXPECT_EQ(Converted(noise, {44100, 2}, {32000, 1}, 7), whole);
    EXPECT_EQ(Converted(noise, {44100, 2}, {32000, 1}, 4099), whole);
}

TEST_F(ConversionTest, DoublesMonoAndAveragesStereo) {
    EXPECT_EQ(Converted({1, -2, 32767}, {8000, 1}, {8000, 2}),
              (Samples{1, 1, -2, -2, 32767, 32767}));
    EXPECT_EQ(Converted({4, 6, 1, 2, 2, 3, -1, -2, 32767, 32767, -32768, -32768, 32767, -32768},
                        {8000, 2}, {8000, 1}),
              (Samples{5, 2, 2, -2, 32767, -32768, 0}));
    const Samples doubled = Converted(Noise(5000), {8000, 1}, {11025, 2});
    EXPECT_EQ(doubled.size() / 2, static_cast<std::size_t>(FramesAtRate(5000, 8000, 11025)));
    for (std::size_t i = 0; i < doubled.size(); i += 2)
        ASSERT_EQ(doubled[i], doubled[i + 1]);
}

TEST_F(ConversionTest, ABlockIsConvertedLikeItsSamples) {
    std::mt19937 random(5);
    std::vector<float> left;
    std::vector<float> right;
    for (int i = 0; i < 1000; ++i) {
        // Any bit pattern at all, and in turn what is near a tie.
        left.push_back(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
        right.push_back((static_cast<float>(random() % 70'000) - 35'000) / 65536);
    }
    for (const std::size_t count : {0, 1, 7, 8, 9, 999}) {
        Samples single(count);
        Samples both(2 * count);
        ConvertSamples(left.data() + 1, single.data(), count);
        InterleaveStereo(left.data() + 1, right.data() + 1, both.data(), count);
        for (std::size_t i = 0; i < count; ++i) {
            ASSERT_EQ(single[i], ToSample(left[i + 1])) << left[i + 1];
            ASSERT_EQ(both[2 * i], ToSample(left[i + 1])) << left[i + 1];
            ASSERT_EQ(both[2 * i + 1], ToSample(right[i + 1])) << right[i + 1];
        }
    }
}

TEST_F(ConversionTest, RefusesRatesThatAreWorldsApart) {
    Make(In("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 8, 1, Noise(100));
    auto reader = Open(In("a.wav"));
    EXPECT_FALSE(files_.ReadAs(reader, {44100, 1}));
    EXPECT_EQ(ReadAll(*reader), Noise(100));
}

}  // namespace
}  // namespace mavrin2::dusoro
