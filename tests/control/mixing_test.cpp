#include "control/signal/mixing.h"

#include <gtest/gtest.h>

#include <vector>

namespace mavrin2::signal {
namespace {

using Samples = std::vector<std::int16_t>;

TEST(MixingTest, SumsAreTruncatedTowardZeroAndLimited) {
    Samples sound{32767, -32768, 3, -3, 100, 0};
    const Samples added{32767, -32768, 4, -4, -50, 1};
    Samples half = sound;
    EXPECT_EQ(MixLimited(sound, added, 1, 1), 2U);
    EXPECT_EQ((Samples{32767, -32768, 7, -7, 50, 1}), sound);
    EXPECT_EQ(MixLimited(half, added, 0.5, 0.5), 0U);
    EXPECT_EQ((Samples{32767, -32768, 3, -3, 25, 0}), half);
    EXPECT_EQ(MixLimited(half, added, -1e300, 1e300), 4U);
    EXPECT_EQ((Samples{0, 0, 32767, -32768, -32768, 32767}), half);
}

TEST(MixingTest, TheNewFadesInOverTheOldByAQuarterOfASine) {
    Samples sound(10, 10000);
    const Samples old{0, -10000, 0, -10000, 0, -10000, 0, -10000};
    Crossfade(sound, old, 2);
    // sin 0, sin 22.5°, sin 45°, sin 67.5°
    EXPECT_EQ((Samples{0, -10000, 3826, -2346, 7071, 4142, 9238, 8477, 10000, 10000}), sound);
    Samples brief(3, 10000);
    Crossfade(brief, old, 2);
    EXPECT_EQ((Samples{0, -10000, 10000}), brief);
}

}  // namespace
}  // namespace mavrin2::signal
