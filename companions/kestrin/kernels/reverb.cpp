#include "companions/kestrin/kernels/reverb.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <numeric>

#include "companions/kestrin/kernels/noise.h"
#include "companions/kestrin/kernels/quiet_floor.h"

namespace mavrin2::kestrin {
namespace {

// The lengths of the eight delays, as multiples of the way to the first reflection: spread so that
// their sums hardly ever meet.
constexpr std::array<double, 8> kLengths = {1.000, 1.171, 1.332, 1.473, 1.657, 1.849, 2.043, 2.229};
constexpr double kShortestLine = 0.010;
constexpr double kLongestLine = 0.080;
constexpr std::size_t kPiece = 512;
// Early reflections arrive until so many times the first one's delay.
constexpr double kEarlySpread = 3;

double LineScale(double delay) {
    return std::clamp(delay, kShortestLine, kLongestLine);
}

std::size_t Samples(double seconds, double rate) {
    return std::max<std::size_t>(1, static_cast<std::size_t>(std::lround(seconds * rate)));
}

}  // namespace

Reverb::Reverb(const Settings& settings, double rate)
    : mix_(settings.Mix),
      tailGain_(settings.TailGain),
      history_(Samples(settings.Delay * kEarlySpread, rate) + kPiece + 1),
      tailDelay_(Samples(settings.Delay, rate)) {
    // One reflection in each of equal times, somewhere in it, weaker with the way it has come.
    // Their power together is that of a single one.
    RandomNumbers random(20);
    double power = 0;
    for (int i = 0; i < settings.Reflections; ++i) {
        const double place = i == 0 ? 0.0 : (i + 0.5 * random.Next()) / settings.Reflections;
        const double way = 1 + (kEarlySpread - 1) * std::max(place, 0.0);
        const double gain = (random.Next() > 0 || i == 0 ? 1 : -1) / way;
        taps_.push_back({Samples(settings.Delay * way, rate), static_cast<float>(gain)});
        power += gain * gain;
    }
    for (Tap& tap : taps_)
        tap.Gain /= static_cast<float>(std::sqrt(power));

    const double scale = LineScale(settings.Delay);
    const double mean = std::accumulate(kLengths.begin(), kLengths.end(), 0.0) / kLines;
    for (std::size_t i = 0; i < kLines; ++i) {
        lengths_[i] = Samples(scale * kLengths[i], rate) | 1;
        // Longer lines lose more in one turn, so that all fade alike.
        gains_[i / 4][i % 4] = static_cast<float>(
            settings.Feedback > 0 ? std::pow(settings.Feedback, kLengths[i] / mean) : 0.0);
    }
    lines_.resize(std::bit_ceil(*std::max_element(lengths_.begin(), lengths_.end()) + 1));
    mask_ = lines_.size() - 1;
    damping_ = static_cast<float>(
        std::exp(-2 * std::numbers::pi * std::min(settings.Frequency, rate / 2) / rate));
}

float Reverb::Tail(float input) {
    const auto line = [&](std::size_t i) {
        return lines_[(at_ - lengths_[i]) & mask_][i / 4][i % 4];
    };
    const Eight ends = {Four{line(0), line(1), line(2), line(3)},
                        Four{line(4), line(5), line(6), line(7)}};
    for (std::size_t i = 0; i < 2; ++i)
        damped_[i] = ends[i] + (damped_[i] - ends[i]) * damping_;

    // The Hadamard matrix of eight, by three rounds of sums and differences.
    const Four low = damped_[0] * gains_[0];
    const Four high = damped_[1] * gains_[1];
    Eight mixed = {low + high, low - high};
    for (Four& four : mixed) {
        const Four crossed = __builtin_shufflevector(four, four, 2, 3, 0, 1);
        four = crossed + four * Four{1, 1, -1, -1};
        const Four neighbours = __builtin_shufflevector(four, four, 1, 0, 3, 2);
        four = neighbours + four * Four{1, -1, 1, -1};
    }
    constexpr float kOrthogonal = 0.35355339F;  // 1 / √8
    const float entering = input * kOrthogonal + kQuietFloor;
    for (std::size_t i = 0; i < 2; ++i)
        lines_[at_ & mask_][i] = mixed[i] * kOrthogonal + entering;
    ++at_;

    // With changing signs, so that the lines do not add up where they agree.
    const Four sum = damped_[0] - damped_[1];
    return (sum[0] - sum[1] + sum[2] - sum[3]) * kOrthogonal;
}

void Reverb::Process(std::span<float> block) {
    while (!block.empty()) {
        const std::size_t count = std::min(block.size(), kPiece);
        ProcessPiece(block.first(count));
        block = block.subspan(count);
    }
}

void Reverb::ProcessPiece(std::span<float> piece) {
    history_.Append(piece);
    const float* const now = history_.End() - piece.size();
    std::array<float, kPiece> room{};
    for (const Tap& tap : taps_) {
        const float* const past = now - tap.Delay;
        for (std::size_t i = 0; i < piece.size(); ++i)
            room[i] += tap.Gain * past[i];
    }
    for (std::size_t i = 0; i < piece.size(); ++i)
        room[i] += tailGain_ * Tail(*(now + i - tailDelay_));
    for (std::size_t i = 0; i < piece.size(); ++i)
        piece[i] += mix_ * room[i];
}

}  // namespace mavrin2::kestrin
