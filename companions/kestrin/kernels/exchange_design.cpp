#include "companions/kestrin/kernels/exchange_design.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace mavrin2::kestrin {
namespace {

constexpr std::size_t kGridDensity = 16;
constexpr int kMostRounds = 60;
constexpr double kEqualEnough = 1e-4;  // of the largest error
constexpr double kSmallEnough = 1e-6;  // below the last of 16 bits
// So many rounds without a better filter, and rounding decides.
constexpr int kMostIdleRounds = 6;

struct GridPoint {
    double Frequency;
    double Cosine;
    double Gain;
    double Weight;
};

std::vector<GridPoint> MakeGrid(std::span<const FilterBand> bands, std::size_t unknowns) {
    double width = 0;
    for (const FilterBand& band : bands)
        width += band.To - band.From;
    const double step = std::max(width, 1e-6) / static_cast<double>(kGridDensity * unknowns);
    std::vector<GridPoint> grid;
    for (const FilterBand& band : bands) {
        const auto steps = std::max<std::size_t>(
            1, static_cast<std::size_t>(std::lround((band.To - band.From) / step)));
        for (std::size_t i = 0; i <= steps; ++i) {
            const double frequency = band.From + (band.To - band.From) * static_cast<double>(i) /
                                                     static_cast<double>(steps);
            grid.push_back(
                {frequency, std::cos(std::numbers::pi * frequency), band.Gain, band.Weight});
        }
    }
    return grid;
}

// The polynomial in the cosine of the frequency that has errors of equal size and changing sign at
// given points, in Lagrange's barycentric form.
class EqualErrorPolynomial {
public:
    explicit EqualErrorPolynomial(std::span<const GridPoint> points) {
        const std::size_t count = points.size();
        std::vector<double> weights(count);
        for (std::size_t i = 0; i < count; ++i) {
            // As a sum of logarithms: the product leaves the range of numbers.
            double logarithm = 0;
            bool negative = false;
            for (std::size_t k = 0; k < count; ++k) {
                if (k == i) continue;
                const double distance = points[i].Cosine - points[k].Cosine;
                logarithm -= std::log(2 * std::abs(distance));
                negative ^= distance < 0;
            }
            weights[i] = logarithm;
            signs_.push_back(negative ? -1.0 : 1.0);
        }
        const double largest = *std::max_element(weights.begin(), weights.end());
        double above = 0;
        double below = 0;
        for (std::size_t i = 0; i < count; ++i) {
            weights_.push_back(signs_[i] * std::exp(weights[i] - largest));
            above += weights_[i] * points[i].Gain;
            below += (i % 2 == 0 ? weights_[i] : -weights_[i]) / points[i].Weight;
        }
        error_ = above / below;
        for (std::size_t i = 0; i < count; ++i) {
            cosines_.push_back(points[i].Cosine);
            values_.push_back(points[i].Gain - (i % 2 == 0 ? error_ : -error_) / points[i].Weight);
        }
    }

    double Error() const { return std::abs(error_); }

    double At(double cosine) const {
        double above = 0;
        double below = 0;
        for (std::size_t i = 0; i < cosines_.size(); ++i) {
            const double distance = cosine - cosines_[i];
            if (std::abs(distance) < 1e-14) return values_[i];
            const double part = weights_[i] / distance;
            above += part * values_[i];
            below += part;
        }
        return above / below;
    }

private:
    std::vector<double> cosines_;
    std::vector<double> values_;
    std::vector<double> signs_;
    std::vector<double> weights_;
    double error_ = 0;
};

// The largest error of each run of one sign, the largest `count` of them in a row that alternates.
std::vector<std::size_t> Extremes(std::span<const double> errors, std::size_t count) {
    std::vector<std::size_t> extremes;
    for (std::size_t i = 0; i < errors.size(); ++i) {
        const bool sameRun =
            !extremes.empty() && std::signbit(errors[extremes.back()]) == std::signbit(errors[i]);
        if (!sameRun)
            extremes.push_back(i);
        else if (std::abs(errors[i]) > std::abs(errors[extremes.back()]))
            extremes.back() = i;
    }
    while (extremes.size() > count) {
        const auto size = [&](std::size_t i) { return std::abs(errors[extremes[i]]); };
        if (extremes.size() == count + 1) {
            // One too many can only go at an end.
            if (size(0) < size(extremes.size() - 1))
                extremes.erase(extremes.begin());
            else
                extremes.pop_back();
            break;
        }
        // The smallest goes, with the smaller of its neighbours, which have the other sign.
        std::size_t smallest = 0;
        for (std::size_t i = 1; i < extremes.size(); ++i)
            if (size(i) < size(smallest)) smallest = i;
        if (smallest == 0) {
            extremes.erase(extremes.begin());
        } else if (smallest == extremes.size() - 1) {
            extremes.pop_back();
        } else {
            const std::size_t first =
                size(smallest - 1) < size(smallest + 1) ? smallest - 1 : smallest;
            extremes.erase(extremes.begin() + static_cast<std::ptrdiff_t>(first),
                           extremes.begin() + static_cast<std::ptrdiff_t>(first) + 2);
        }
    }
    return extremes;
}

// The taps of the filter whose gains the polynomial gives: its cosine series, by sampling.
std::vector<float> ToTaps(const EqualErrorPolynomial& gains, std::size_t taps) {
    const std::size_t middle = taps / 2;
    std::vector<double> samples;
    for (std::size_t i = 0; i <= middle; ++i)
        samples.push_back(gains.At(
            std::cos(2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(taps))));
    std::vector<float> filter(taps);
    for (std::size_t k = 0; k <= middle; ++k) {
        double sum = samples[0];
        for (std::size_t i = 1; i <= middle; ++i)
            sum += 2 * samples[i] *
                   std::cos(2 * std::numbers::pi * static_cast<double>((i * k) % taps) /
                            static_cast<double>(taps));
        filter[middle + k] = filter[middle - k] =
            static_cast<float>(sum / static_cast<double>(taps));
    }
    return filter;
}

}  // namespace

std::vector<float> ExchangeFilter(std::span<const FilterBand> bands, std::size_t taps,
                                  const std::function<void()>& pause) {
    const std::size_t count = taps / 2 + 2;  // of extremal frequencies
    const std::vector<GridPoint> grid = MakeGrid(bands, count);

    std::vector<GridPoint> points;
    for (std::size_t i = 0; i < count; ++i)
        points.push_back(grid[i * (grid.size() - 1) / (count - 1)]);
    std::vector<GridPoint> best = points;
    double leastError = std::numeric_limits<double>::infinity();
    std::vector<double> errors(grid.size());
    int idleRounds = 0;
    for (int round = 0; round < kMostRounds; ++round) {
        const EqualErrorPolynomial polynomial(points);
        double largest = 0;
        for (std::size_t i = 0; i < grid.size(); ++i) {
            errors[i] = grid[i].Weight * (grid[i].Gain - polynomial.At(grid[i].Cosine));
            largest = std::max(largest, std::abs(errors[i]));
            if (i % 64 == 0) pause();
        }
        if (!std::isfinite(largest)) break;
        ++idleRounds;
        if (largest < leastError) {
            leastError = largest;
            best = points;
            idleRounds = 0;
        }
        if (largest - polynomial.Error() <= kEqualEnough * largest || largest < kSmallEnough ||
            idleRounds == kMostIdleRounds)
            break;
        const auto extremes = Extremes(errors, count);
        // Rounding dominates: this cannot be distinguished from a better filter.
        if (extremes.size() < count) break;
        for (std::size_t i = 0; i < count; ++i)
            points[i] = grid[extremes[i]];
    }
    return ToTaps(EqualErrorPolynomial(best), taps);
}

}  // namespace mavrin2::kestrin
