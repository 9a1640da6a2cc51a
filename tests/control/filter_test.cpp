#include "control/signal/filter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <stdexcept>
#include <vector>

#include "control/signal/kernels.h"

namespace mavrin2::signal {
namespace {

struct Rates {
    double Source, Destination, StopEdge, StopWeight;
};

double ResponseAt(const CFilter& filter, double cycles) {
    double sum = 0;
    for (std::size_t k = 0; k < CFilter::Taps; ++k)
        sum += filter.Coefficients()[k] *
               std::cos(2 * std::numbers::pi * cycles * (24.5 - static_cast<double>(k)));
    return sum;
}

// The best approximation is the one whose error reaches its largest size with alternating signs
// once more often than the polynomial has terms.
TEST(FilterTest, ADesignHasTheFewestRippleThatFiftyTapsAllow) {
    const Rates table[] = {{8000, 44100, 5000, 15},
                           {22050, 44100, 12025, 5},
                           {22050, 24000, 975 * double{0.3f} + 11025, 5},
                           {44100, 48000, 23050, 5},
                           {6001, 48000, 4000.5, 20}};
    for (const auto& [source, destination, stop, weight] : table) {
        CFilter filter;
        filter.Design(source / 2, destination, weight);
        SCOPED_TRACE(testing::Message() << source << " to " << destination);
        EXPECT_EQ(RemezOutcome::Converged, filter.DesignResult());
        double passRipple = 0;
        double stopRipple = 0;
        int alternations = 0;
        int sign = 0;
        for (int i = 0; i <= 20000; ++i) {
            const bool passes = i <= 10000;
            const double f = passes ? source / 2 * i / 10000
                                    : stop + (destination / 2 - 1 - stop) * (i - 10001) / 9999;
            const double error = ResponseAt(filter, f / destination) - (passes ? 1 : 0);
            double& ripple = passes ? passRipple : stopRipple;
            ripple = std::max(ripple, std::abs(error));
            const double weighted = passes ? error : error * weight;
            if (std::abs(weighted) < filter.Deviation() * 0.995 || sign * weighted > 0) continue;
            sign = weighted < 0 ? -1 : 1;
            ++alternations;
        }
        EXPECT_EQ(26, alternations);
        EXPECT_NEAR(filter.Deviation(), passRipple, filter.Deviation() * 2e-3);
        EXPECT_NEAR(filter.Deviation() / weight, stopRipple, filter.Deviation() / weight * 2e-3);
        for (std::size_t k = 0; k < 25; ++k)
            EXPECT_EQ(filter.Coefficients()[k], filter.Coefficients()[49 - k]);
    }
    CFilter filter;
    EXPECT_THROW(filter.Design(4000, 8002, 5), std::domain_error);
}

TEST(FilterTest, EveryVersionAddsUpLikeThePlainLoop) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> values(-32768, 32767);
    std::vector<double> inputs(Kernels::Chunk + 50);
    std::vector<double> taps(50);
    std::ranges::generate(inputs, [&] { return values(random); });
    std::ranges::generate(taps, [&] { return values(random) / 65536; });
    for (const Kernels& kernels : SupportedKernels()) {
        std::vector<double> sums(Kernels::Chunk);
        kernels.Convolve(inputs.data() + 50, taps.data(), 50, sums.data(), sums.size());
        for (std::size_t i = 0; i < sums.size(); ++i) {
            double sum = 0;
            for (std::size_t k = 0; k < 50; ++k)
                sum += inputs[50 + i - k] * taps[k];
            ASSERT_EQ(sum, sums[i]) << i;
        }
        Kernels::Places places{};
        Kernels::Places plain{};
        const TimeGrid grid{44100, 48000, 1.3e-5, 1};
        kernels.Locate(grid, 123456789, places);
        SupportedKernels().front().Locate(grid, 123456789, plain);
        EXPECT_EQ(plain.Index, places.Index);
        EXPECT_EQ(plain.Elapsed, places.Elapsed);
    }
}

}  // namespace
}  // namespace mavrin2::signal
