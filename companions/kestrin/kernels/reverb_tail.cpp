#include "companions/kestrin/kernels/reverb_tail.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <numeric>

#include "companions/kestrin/kernels/quiet_floor.h"

namespace mavrin2::kestrin {
namespace {

// The lengths of the eight delays, as multiples of the way to the first reflection: spread so that
// their sums hardly ever meet.
constexpr std::array<double, 8> kLengths = {1.000, 1.171, 1.332, 1.473, 1.657, 1.849, 2.043, 2.229};
constexpr double kShortestLine = 0.010;
constexpr double kLongestLine = 0.080;
// Four samples are computed at a time, also where fewer are wanted.
constexpr std::size_t kStep = 4;
constexpr float kOrthogonal = 0.35355339F;  // 1 / √8

}  // namespace

ReverbTail::ReverbTail(const Settings& settings, double rate) {
    const double scale = std::clamp(settings.Delay, kShortestLine, kLongestLine);
    const double mean = std::accumulate(kLengths.begin(), kLengths.end(), 0.0) / kLines;
    for (std::size_t i = 0; i < kLines; ++i) {
        lengths_[i] =
            std::max(kStep, static_cast<std::size_t>(std::lround(scale * kLengths[i] * rate))) | 1;
        lines_.emplace_back(lengths_[i] + kPiece);
        // Longer lines lose more in one turn, so that all fade alike.
        gains_[i] = static_cast<float>(
            settings.Feedback > 0 ? std::pow(settings.Feedback, kLengths[i] / mean) : 0.0);
    }
    reach_ = std::min(kPiece, *std::ranges::min_element(lengths_) - (kStep - 1));
    const double damping =
        std::exp(-2 * std::numbers::pi * std::min(settings.Frequency, rate / 2) / rate);
    for (std::size_t i = 0; i < damping_.size(); ++i)
        damping_[i] = static_cast<float>(std::pow(damping, static_cast<double>(i + 1)));
}

void ReverbTail::Add(const float* input, float gain, std::span<float> sum) {
    while (!sum.empty()) {
        const std::size_t count = std::min(sum.size(), reach_);
        AddPiece(input, gain, sum.first(count));
        input += count;
        sum = sum.subspan(count);
    }
}

ReverbTail::Square ReverbTail::Turned(const Square& square) {
    const Four a = __builtin_shufflevector(square[0], square[1], 0, 4, 1, 5);
    const Four b = __builtin_shufflevector(square[2], square[3], 0, 4, 1, 5);
    const Four c = __builtin_shufflevector(square[0], square[1], 2, 6, 3, 7);
    const Four d = __builtin_shufflevector(square[2], square[3], 2, 6, 3, 7);
    return {__builtin_shufflevector(a, b, 0, 1, 4, 5), __builtin_shufflevector(a, b, 2, 3, 6, 7),
            __builtin_shufflevector(c, d, 0, 1, 4, 5), __builtin_shufflevector(c, d, 2, 3, 6, 7)};
}

// A first-order low-pass over the time of four lines. What comes out of it is written as a sum of
// the four samples and of the state before them, so that no sample waits for the one before.
[[gnu::always_inline]] inline ReverbTail::Square ReverbTail::Damped(const Square& lines,
                                                                    Four& state,
                                                                    std::size_t count) const {
    Square values = Turned(lines);
    for (Four& value : values)
        value *= 1 - damping_[0];
    for (std::size_t i = 1; i < values.size(); ++i)
        values[i] += values[i - 1] * damping_[0];
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] += state * damping_[i];
    // Not by an index, which would keep the values in memory.
    state = count >= 4 ? values[3] : count == 3 ? values[2] : count == 2 ? values[1] : values[0];
    return Turned(values);
}

void ReverbTail::AddPiece(const float* input, float gain, std::span<float> sum) {
    std::array<Piece, kLines> entering;
    Piece padded{};
    std::copy_n(input, sum.size(), padded.begin());
    Piece tail;
    std::array<const float*, kLines> past;
    for (std::size_t i = 0; i < kLines; ++i)
        past[i] = lines_[i].End() - lengths_[i];

    for (std::size_t at = 0; at < sum.size(); at += kStep) {
        std::array<Four, kLines> lines;
        for (std::size_t half = 0; half < 2; ++half) {
            Square read;
            for (std::size_t i = 0; i < 4; ++i)
                std::memcpy(&read[i], past[half * 4 + i] + at, sizeof(Four));
            const Square damped = Damped(read, damped_[half], std::min(kStep, sum.size() - at));
            std::ranges::copy(damped, lines.begin() + static_cast<std::ptrdiff_t>(half) * 4);
        }
        // With changing signs, so that the lines do not add up where they agree.
        const Four heard = (lines[0] - lines[1] + lines[2] - lines[3] - lines[4] + lines[5] -
                            lines[6] + lines[7]) *
                           (kOrthogonal * gain);
        std::memcpy(&tail[at], &heard, sizeof heard);

        for (std::size_t i = 0; i < kLines; ++i)
            lines[i] *= gains_[i] * kOrthogonal;
        // The Hadamard matrix of eight, by three rounds of sums and differences.
        for (std::size_t distance = kLines / 2; distance > 0; distance /= 2)
            for (std::size_t i = 0; i < kLines; ++i)
                if ((i & distance) == 0) {
                    const Four difference = lines[i] - lines[i + distance];
                    lines[i] += lines[i + distance];
                    lines[i + distance] = difference;
                }
        Four fresh;
        std::memcpy(&fresh, &padded[at], sizeof fresh);
        fresh = fresh * kOrthogonal + kQuietFloor;
        for (std::size_t i = 0; i < kLines; ++i) {
            const Four value = lines[i] + fresh;
            std::memcpy(&entering[i][at], &value, sizeof value);
        }
    }
    for (std::size_t i = 0; i < kLines; ++i)
        lines_[i].Append(std::span(entering[i]).first(sum.size()));
    for (std::size_t i = 0; i < sum.size(); ++i)
        sum[i] += tail[i];
}

}  // namespace mavrin2::kestrin
