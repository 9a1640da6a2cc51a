#include <cmath>

#include "tests/kestrin/transform_test.h"

namespace mavrin2::kestrin {
namespace {

class FiltersTest : public TransformTest {};

struct Point {
    double Frequency;
    double Decibels;
    double Tolerance;
};
struct FilterCase {
    Id Operation;
    Floats Values;
    std::vector<Point> Points;
};

TEST_F(FiltersTest, FiltersHaveTheirGains) {
    const FilterCase cases[] = {
        {Id::LowPassFilter, {1000, 1}, {{100, 0, 0.1}, {1000, -3.01, 0.05}, {4000, -24.2, 0.5}}},
        {Id::LowPassFilter, {1000, 4}, {{500, 0, 0.1}, {1000, -3.01, 0.05}, {2000, -48.5, 1}}},
        {Id::HighPassFilter, {1000, 1}, {{10000, 0, 0.1}, {1000, -3.01, 0.05}, {250, -24, 0.3}}},
        {Id::HighPassFilter, {1000, 3}, {{2000, 0, 0.1}, {1000, -3.01, 0.05}, {500, -36.2, 0.5}}},
        {Id::BandPassFilter,
         {1000, 1},
         {{1000, 0, 0.05}, {707.1, -3.01, 0.1}, {1414.2, -3.01, 0.2}}},
        {Id::BandPassFilter, {1000, 3}, {{1000, 0, 0.05}, {707.1, -3.01, 0.1}, {2000, -19.7, 0.3}}},
        {Id::NotchFilter, {1000, 1}, {{890.9, -3.01, 0.1}, {1122.5, -3.01, 0.1}, {100, 0, 0.1}}},
        {Id::PeakEQFilter, {12, 1000, 1}, {{1000, 12, 0.05}, {707.1, 6, 0.1}, {60, 0, 0.2}}},
        {Id::PeakEQFilter, {-12, 1000, 2}, {{1000, -12, 0.05}, {1414.2, -6, 0.1}, {8000, 0, 0.2}}},
        {Id::LowShelfFilter, {6, 500, 1}, {{20, 6, 0.1}, {500, 3, 0.05}, {8000, 0, 0.1}}},
        {Id::LowShelfFilter, {-20, 500, 3}, {{250, -20, 0.6}, {500, -10, 0.05}, {1000, 0, 0.6}}},
        {Id::HighShelfFilter, {6, 2000, 1}, {{18000, 6, 0.1}, {2000, 3, 0.05}, {100, 0, 0.1}}},
        {Id::HighShelfFilter, {-6, 2000, 2}, {{8000, -6, 0.1}, {2000, -3, 0.05}, {500, 0, 0.1}}},
    };
    for (const FilterCase& filter : cases)
        for (const Point& point : filter.Points)
            EXPECT_NEAR(GainAt(point.Frequency, filter.Operation, filter.Values), point.Decibels,
                        point.Tolerance)
                << OperationOf(filter.Operation).Name << " " << filter.Values.back() << " at "
                << point.Frequency;
    EXPECT_LT(GainAt(1000, Id::NotchFilter, {1000, 1}), -60);
}

// What comes before the region is not known; it is taken as going on like the region begins.
TEST_F(FiltersTest, AFilterStartsWithoutAClick) {
    const Samples constant(10000, 12000);
    for (const auto sample : Run(Id::HighPassFilter, constant, {50, 2}))
        ASSERT_NEAR(sample, 0, 12);
    for (const auto sample : Run(Id::LowPassFilter, constant, {50, 2}))
        ASSERT_NEAR(sample, 12000, 12);
}

TEST_F(FiltersTest, AnEqualizerHitsTheGainOfEachBand) {
    const Floats octaves = {31.25, 62.5, 125, 250, 500, 1000, 2000, 4000, 8000, 16000};
    const Floats gains[] = {{6, -6, 6, -6, 6, -6, 6, -6, 6, -6},
                            {0, 0, 12, 0, 0, 0, -24, 0, 0, 0},
                            {12, 12, 12, 12, 12, 12, 12, 12, 12, 12}};
    for (const Floats& gain : gains)
        for (std::size_t i = 0; i < octaves.size(); ++i)
            EXPECT_NEAR(GainAt(octaves[i], Id::Equalizer, {}, {gain, octaves}), gain[i], 0.5)
                << octaves[i];
    // Between bands nothing overshoots; bands may come in any order.
    EXPECT_NEAR(GainAt(700, Id::Equalizer, {}, {{12, 0, 12}, {1000, 2000, 500}}), 12, 0.3);
}

TEST_F(FiltersTest, AnFftFilterFollowsItsGainsWithoutSeams) {
    const Floats gains = {100, 100, 100, 0, 0, 50, 50, 50, 50};  // one each 2756 Hz
    EXPECT_NEAR(GainAt(2000, Id::FFTFilter, {}, {gains}), 0, 0.1);
    EXPECT_NEAR(GainAt(17000, Id::FFTFilter, {}, {gains}), -6.02, 0.1);
    EXPECT_LT(GainAt(9800, Id::FFTFilter, {}, {gains}), -60);
    // No delay, and nothing but the tone: a seam would be heard as a step.
    const Samples tone = Sine(1000, 100000);
    const Samples out = Run(Id::FFTFilter, tone, {}, {gains});
    for (std::size_t i = 5000; i < 95000; ++i)
        ASSERT_NEAR(out[i], tone[i], 4) << i;
}

TEST_F(FiltersTest, AnFirFilterHasEqualRipples) {
    const Floats edges = {0, 4000, 5000, 22050};
    const auto gainAt = [&](double frequency, float stopWeight) {
        return GainAt(frequency, Id::FIRFilter, {101}, {edges, {0, -120}, {1, stopWeight}});
    };
    for (const double frequency : {100.0, 2000.0, 3900.0})
        EXPECT_NEAR(gainAt(frequency, 1), 0, 0.1) << frequency;
    double worst = -200;
    for (double frequency = 5000; frequency < 22000; frequency += 330)
        worst = std::max(worst, gainAt(frequency, 1));
    EXPECT_LT(worst, -44);                     // the best that so many taps can do
    EXPECT_LT(gainAt(5100, 100), worst - 10);  // more weight, less error
    // A third band, with gain.
    EXPECT_NEAR(
        GainAt(10000, Id::FIRFilter, {255}, {{0, 6000, 8000, 12000, 14000, 22050}, {0, 12, 0}, {}}),
        12, 0.1);
}

TEST_F(FiltersTest, ExchangeFiltersOfAllLengthsAreWellMade) {
    for (const float taps : {3.0F, 31.0F, 501.0F, 1023.0F}) {
        const std::vector<Floats> arrays = {{0, 8000, 12000, 22050}, {0, -120}, {}};
        EXPECT_NEAR(GainAt(1000, Id::FIRFilter, {taps}, arrays), 0, taps < 10 ? 3 : 0.5) << taps;
        EXPECT_LT(GainAt(18000, Id::FIRFilter, {taps}, arrays), taps < 10 ? -8 : -30) << taps;
    }
}

}  // namespace
}  // namespace mavrin2::kestrin
