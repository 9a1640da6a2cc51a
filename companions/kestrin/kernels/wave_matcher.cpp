#include "companions/kestrin/kernels/wave_matcher.h"

#include <bit>
#include <cmath>
#include <cstring>

namespace mavrin2::kestrin {
namespace {

// Of the coarse copy: enough for the waves that matter.
constexpr double kCoarseRate = 11025;
// By how much less alike than the best place one that is preferred may be.
constexpr float kTolerance = 0.05F;
// Power of a sound below which it is silence.
constexpr float kSilence = 1e-9F;

float Product(const float* a, const float* b, std::size_t count) {
    using Four [[gnu::vector_size(16)]] = float;
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

}  // namespace

WaveMatcher::WaveMatcher(const HeldSound& sound, std::size_t length, std::int32_t reach,
                         double rate, const Libraries& libraries)
    : sound_(sound),
      length_(length),
      reach_(reach),
      coarseness_(static_cast<std::int32_t>(std::clamp(
          std::round(rate / kCoarseRate), 1.0, std::max(1.0, static_cast<double>(reach) / 4)))),
      coarseLength_(std::max<std::size_t>(1, length / static_cast<std::size_t>(coarseness_))),
      coarseReach_(static_cast<std::size_t>(reach / coarseness_)),
      fourier_(libraries.MakeFourier(
          std::bit_ceil(std::max<std::size_t>(8, coarseLength_ + 2 * coarseReach_)))),
      fine_(fourier_->Time().size() * static_cast<std::size_t>(coarseness_)),
      model_(length),
      around_(length + 4 * static_cast<std::size_t>(coarseness_)) {}

void WaveMatcher::ReadCoarsely(std::int64_t first, std::span<float> to) {
    const auto step = static_cast<std::size_t>(coarseness_);
    const auto fine = std::span(fine_).first(to.size() * step);
    sound_.Read(first, fine);
    for (std::size_t i = 0; i < to.size(); ++i) {
        float sum = 0;
        for (std::size_t k = 0; k < step; ++k)
            sum += fine[i * step + k];
        to[i] = sum;
    }
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
    // Of all the stretches, the first one's power; the others follow from it.
    std::vector<float>& values = fine_;
    std::copy_n(time.begin(), read, values.begin());
    double power = Product(values.data(), values.data(), coarseLength_);
    fourier_->Forward();
    for (std::size_t i = 0; i < spectrum.size(); ++i) {
        const auto a = spectrum[i];
        const auto b = modelSpectrum_[i];
        spectrum[i] = {a.real() * b.real() + a.imag() * b.imag(),
                       a.imag() * b.real() - a.real() * b.imag()};
    }
    fourier_->Inverse();

    // Compared by squares, with their signs, and without division.
    std::int32_t best = 0;
    double bestProduct = 0;
    double bestPower = 1;
    for (std::int32_t shift = -middle; shift <= middle; ++shift) {
        const auto i = static_cast<std::size_t>(std::int64_t{shift} + middle);
        const double product = time[i];
        if (shift * coarseness_ >= least && shift * coarseness_ <= most && product > 0 &&
            product * product * bestPower > bestProduct * bestProduct * power) {
            best = shift;
            bestProduct = product;
            bestPower = power;
        }
        if (i + coarseLength_ < read)
            power = std::max(power + double{values[i + coarseLength_]} * values[i + coarseLength_] -
                                 double{values[i]} * values[i],
                             1e-12);
    }
    return best;
}

// Of the model and the sound `shift` samples into `around_`.
float WaveMatcher::LikenessAt(std::int32_t shift) const {
    const float* const other = around_.data() + shift;
    const float powers =
        Product(model_.data(), model_.data(), length_) * Product(other, other, length_);
    return Product(model_.data(), other, length_) /
           std::sqrt(std::max(powers, kSilence * kSilence));
}

std::int32_t WaveMatcher::BestShift(std::int64_t model, std::int64_t place, std::int32_t least,
                                    std::int32_t most, std::optional<std::int32_t> preferred) {
    const std::int32_t coarse = CoarseShift(model, place, least, most) * coarseness_;
    sound_.Read(model, model_);
    const std::int32_t from = std::max(least, coarse - coarseness_);
    const std::int32_t to = std::min(most, coarse + coarseness_);
    sound_.Read(place + from, around_);
    std::int32_t best = std::clamp(0, from, to);
    float highest = LikenessAt(best - from);
    for (std::int32_t shift = from; shift <= to; ++shift) {
        const float likeness = LikenessAt(shift - from);
        if (likeness > highest) {
            highest = likeness;
            best = shift;
        }
    }
    if (!preferred) return best;
    const std::int32_t other = std::clamp(*preferred, least, most);
    sound_.Read(place + other, around_);
    return LikenessAt(0) >= highest - kTolerance ? other : best;
}

}  // namespace mavrin2::kestrin
