#include "companions/kestrin/kernels/wave_matcher.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include "companions/kestrin/kernels/complex_product.h"

namespace mavrin2::kestrin {
namespace {

// Of the coarse copy: enough for the waves that matter.
constexpr double kCoarseRate = 11025;
// By how much less alike than the best place one that is preferred may be.
constexpr float kTolerance = 0.05F;
// Power of a sound below which it is silence.
constexpr float kSilence = 1e-9F;

using Four [[gnu::vector_size(16)]] = float;

float Product(const float* a, const float* b, std::size_t count) {
    Four sums[2] = {};
    std::size_t i = 0;
    for (; i + 8 <= count; i += 8)
        for (std::size_t k = 0; k < 2; ++k) {
            Four first;
            Four second;
            std::memcpy(&first, a + i + 4 * k, sizeof first);
            std::memcpy(&second, b + i + 4 * k, sizeof second);
            sums[k] += first * second;
        }
    const Four sum = sums[0] + sums[1];
    float product = sum[0] + sum[1] + sum[2] + sum[3];
    for (; i < count; ++i)
        product += a[i] * b[i];
    return product;
}

// Puts the sums of neighbours where these were: half as many.
std::span<float> AddNeighbours(std::span<float> values) {
    const std::size_t half = values.size() / 2;
    std::size_t i = 0;
    for (; i + 4 <= half; i += 4) {
        Four first;
        Four second;
        std::memcpy(&first, &values[2 * i], sizeof first);
        std::memcpy(&second, &values[2 * i + 4], sizeof second);
        const Four sums = __builtin_shufflevector(first, second, 0, 2, 4, 6) +
                          __builtin_shufflevector(first, second, 1, 3, 5, 7);
        std::memcpy(&values[i], &sums, sizeof sums);
    }
    for (; i < half; ++i)
        values[i] = values[2 * i] + values[2 * i + 1];
    return values.first(half);
}

// How many samples make one of the coarse copy: a power of two.
std::int32_t CoarsenessFor(double rate, std::int32_t reach) {
    const double wanted = std::clamp(std::round(rate / kCoarseRate), 1.0,
                                     std::max(1.0, static_cast<double>(reach) / 4));
    return static_cast<std::int32_t>(std::bit_floor(static_cast<std::uint32_t>(wanted)));
}

// Of sums of squares, which may have been rounded to less than nothing.
double PowerOf(double sum) {
    return std::max(sum, 1e-12);
}

}  // namespace

WaveMatcher::WaveMatcher(const HeldSound& sound, std::size_t length, std::int32_t reach,
                         double rate, const Libraries& libraries)
    : sound_(sound),
      length_(length),
      reach_(reach),
      coarseness_(CoarsenessFor(rate, reach)),
      coarseLength_(std::max<std::size_t>(1, length / static_cast<std::size_t>(coarseness_))),
      coarseReach_(static_cast<std::size_t>(reach / coarseness_)),
      fourier_(libraries.MakeFourier(
          std::bit_ceil(std::max<std::size_t>(8, coarseLength_ + 2 * coarseReach_)))),
      fine_(fourier_->Time().size() * static_cast<std::size_t>(coarseness_)),
      model_(length),
      around_(length + 4 * static_cast<std::size_t>(coarseness_)) {}

void WaveMatcher::ReadCoarsely(std::int64_t first, std::span<float> to) {
    std::span<float> values =
        std::span(fine_).first(to.size() * static_cast<std::size_t>(coarseness_));
    sound_.Read(first, values);
    while (values.size() > to.size())
        values = AddNeighbours(values);
    std::ranges::copy(values, to.begin());
}

// In steps of the coarse copy.
std::int32_t WaveMatcher::CoarseShift(std::int64_t model, std::int64_t place, std::int32_t least,
                                      std::int32_t most) {
    const auto time = fourier_->Time();
    const auto spectrum = fourier_->Spectrum();
    ReadCoarsely(model, time.first(coarseLength_));
    std::ranges::fill(time.subspan(coarseLength_), 0.0F);
    if (Product(time.data(), time.data(), coarseLength_) < kSilence) return 0;
    fourier_->Forward();
    modelSpectrum_.assign(spectrum.begin(), spectrum.end());

    const auto middle = static_cast<std::int32_t>(coarseReach_);
    const std::size_t read = coarseLength_ + 2 * coarseReach_;
    ReadCoarsely(place - std::int64_t{middle} * coarseness_, time.first(read));
    std::ranges::fill(time.subspan(read), 0.0F);
    // Of all the stretches, the first one's power, and what each further one has more than the one
    // before.
    const double first = Product(time.data(), time.data(), coarseLength_);
    const auto rises = std::span(fine_).first(read - coarseLength_);
    for (std::size_t i = 0; i < rises.size(); ++i)
        rises[i] = time[i + coarseLength_] * time[i + coarseLength_] - time[i] * time[i];
    fourier_->Forward();
    MultiplyBy<Factors::Conjugated>(modelSpectrum_, spectrum);
    fourier_->Inverse();

    // Compared by squares, with their signs, and without division.
    const std::int32_t lowest = std::max(-middle, -(-least / coarseness_));
    const std::int32_t highest = std::min(middle, most / coarseness_);
    std::int32_t best = 0;
    double bestProduct = 0;
    double bestPower = 1;
    double power = first;
    for (std::int32_t shift = -middle; shift <= highest; ++shift) {
        const auto i = static_cast<std::size_t>(std::int64_t{shift} + middle);
        const double product = time[i];
        if (shift >= lowest && product > 0 &&
            product * product * bestPower > bestProduct * bestProduct * PowerOf(power)) {
            best = shift;
            bestProduct = product;
            bestPower = PowerOf(power);
        }
        if (i < rises.size()) power += rises[i];
    }
    return best;
}

std::int32_t WaveMatcher::BestShift(std::int64_t model, std::int64_t place, std::int32_t least,
                                    std::int32_t most, std::optional<std::int32_t> preferred) {
    const std::int32_t coarse = CoarseShift(model, place, least, most) * coarseness_;
    sound_.Read(model, model_);
    const double modelPower = Product(model_.data(), model_.data(), length_);
    const auto likeness = [&](const float* other, double power) {
        return Product(model_.data(), other, length_) /
               std::sqrt(std::max(modelPower * power, double{kSilence} * kSilence));
    };
    const std::int32_t from = std::max(least, coarse - coarseness_);
    const std::int32_t to = std::min(most, coarse + coarseness_);
    sound_.Read(place + from, around_);
    double power = Product(around_.data(), around_.data(), length_);
    // Where all are alike, as in silence, the nearest place is the best.
    const std::int32_t nearest = std::clamp(0, from, to);
    std::int32_t best = nearest;
    double highest = -2;
    for (std::int32_t shift = from; shift <= to; ++shift) {
        const float* const other = around_.data() + (shift - from);
        const double found = likeness(other, PowerOf(power));
        if (found > highest || (shift == nearest && found == highest)) {
            highest = found;
            best = shift;
        }
        power += double{other[length_]} * other[length_] - double{*other} * *other;
    }
    if (!preferred) return best;
    const std::int32_t wanted = std::clamp(*preferred, least, most);
    sound_.Read(place + wanted, around_);
    const double other = likeness(around_.data(), Product(around_.data(), around_.data(), length_));
    return other >= highest - kTolerance ? wanted : best;
}

}  // namespace mavrin2::kestrin
