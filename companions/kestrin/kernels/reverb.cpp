#include "companions/kestrin/kernels/reverb.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "companions/kestrin/kernels/noise.h"

namespace mavrin2::kestrin {
namespace {

constexpr std::size_t kPiece = 512;
// Early reflections arrive until so many times the first one's delay.
constexpr double kEarlySpread = 3;

std::size_t Samples(double seconds, double rate) {
    return std::max<std::size_t>(1, static_cast<std::size_t>(std::lround(seconds * rate)));
}

}  // namespace

Reverb::Reverb(const Settings& settings, double rate)
    : mix_(settings.Mix),
      tailGain_(settings.TailGain),
      history_(Samples(settings.Delay * kEarlySpread, rate) + kPiece + 1),
      tailDelay_(Samples(settings.Delay, rate)),
      tail_({settings.Delay, settings.Feedback, settings.Frequency}, rate) {
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
}

void Reverb::Process(std::span<float> block) {
    while (!block.empty()) {
        const std::size_t count = std::min(block.size(), kPiece);
        ProcessPiece(block.first(count));
        block = block.subspan(count);
    }
}

void Reverb::Reflect(const float* sound, std::span<float> to) const {
    // So many samples stay in registers for all reflections.
    constexpr std::size_t kRun = 16;
    std::size_t at = 0;
    for (; at + kRun <= to.size(); at += kRun) {
        std::array<float, kRun> sums{};
        for (const Tap& tap : taps_) {
            const float* const past = sound + at - tap.Delay;
            for (std::size_t i = 0; i < kRun; ++i)
                sums[i] += tap.Gain * past[i];
        }
        std::ranges::copy(sums, to.begin() + static_cast<std::ptrdiff_t>(at));
    }
    for (; at < to.size(); ++at) {
        to[at] = 0;
        for (const Tap& tap : taps_)
            to[at] += tap.Gain * *(sound + at - tap.Delay);
    }
}

void Reverb::ProcessPiece(std::span<float> piece) {
    history_.Append(piece);
    const float* const now = history_.End() - piece.size();
    std::array<float, kPiece> values;
    const auto room = std::span(values).first(piece.size());
    Reflect(now, room);
    tail_.Add(now - tailDelay_, tailGain_, room);
    for (std::size_t i = 0; i < piece.size(); ++i)
        piece[i] += mix_ * room[i];
}

}  // namespace mavrin2::kestrin
