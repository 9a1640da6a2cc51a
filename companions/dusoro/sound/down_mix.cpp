#include "companions/dusoro/sound/down_mix.h"

#include <algorithm>
#include <cmath>

#include "companions/dusoro/sound/sample_rounding.h"

namespace mavrin2::dusoro {
namespace {

constexpr float kFull = 32768.0f;
constexpr float kHalfPower = 32768.0f * 0.70710678f;
// A single rear channel counts as a pair at 0.7071 each.
constexpr float kQuarterPower = 32768.0f * 0.5f;

// Sums of float differ from full scale by rounding alone.
bool IsBeyond(float steps) {
    return std::abs(steps) > kFull + 0.5f;
}

}  // namespace

std::vector<Speaker> UsualSpeakers(std::size_t channels) {
    using enum Speaker;
    switch (channels) {
        case 1:
            return {FrontCentre};
        case 2:
            return {FrontLeft, FrontRight};
        case 3:
            return {FrontLeft, FrontRight, FrontCentre};
        case 4:
            return {FrontLeft, FrontRight, SurroundLeft, SurroundRight};
        case 5:
            return {FrontLeft, FrontRight, FrontCentre, SurroundLeft, SurroundRight};
        case 6:
            return {FrontLeft, FrontRight, FrontCentre, LowFrequency, SurroundLeft, SurroundRight};
        case 7:
            return {FrontLeft,      FrontRight,   FrontCentre,  LowFrequency,
                    SurroundCentre, SurroundLeft, SurroundRight};
        case 8:
            return {FrontLeft,    FrontRight,    FrontCentre,  LowFrequency,
                    SurroundLeft, SurroundRight, SurroundLeft, SurroundRight};
        default:
            return std::vector<Speaker>(channels, Unknown);
    }
}

DownMix::DownMix(std::span<const Speaker> speakers) {
    gains_.reserve(speakers.size());
    for (std::size_t i = 0; i < speakers.size(); ++i) {
        switch (speakers[i]) {
            case Speaker::FrontLeft:
                gains_.push_back({kFull, 0});
                break;
            case Speaker::FrontRight:
                gains_.push_back({0, kFull});
                break;
            case Speaker::FrontCentre:
                gains_.push_back({kHalfPower, kHalfPower});
                break;
            case Speaker::LowFrequency:
                gains_.push_back({0, 0});
                break;
            case Speaker::SurroundLeft:
                gains_.push_back({kHalfPower, 0});
                break;
            case Speaker::SurroundRight:
                gains_.push_back({0, kHalfPower});
                break;
            case Speaker::SurroundCentre:
                gains_.push_back({kQuarterPower, kQuarterPower});
                break;
            case Speaker::Unknown:  // pairs, left first
                gains_.push_back(i % 2 == 0 ? Gains{kHalfPower, 0} : Gains{0, kHalfPower});
                break;
        }
    }
    ScaleDown();
}

void DownMix::ScaleDown() {
    Gains sum{0, 0};
    for (const Gains& gains : gains_) {
        sum.Left += gains.Left;
        sum.Right += gains.Right;
    }
    const float most = std::max(sum.Left, sum.Right);
    if (most <= kFull) return;
    for (Gains& gains : gains_) {
        gains.Left *= kFull / most;
        gains.Right *= kFull / most;
    }
}

std::size_t DownMix::Apply(std::span<const float> in, std::int16_t* out) const {
    const std::size_t channels = gains_.size();
    const std::size_t frames = in.size() / channels;
    std::size_t limited = 0;
    for (std::size_t i = 0; i < frames; ++i) {
        float left = 0;
        float right = 0;
        for (std::size_t c = 0; c < channels; ++c) {
            const float x = in[i * channels + c];
            left += x * gains_[c].Left;
            right += x * gains_[c].Right;
        }
        out[2 * i] = RoundSteps(left);
        out[2 * i + 1] = RoundSteps(right);
        limited +=
            static_cast<std::size_t>(IsBeyond(left)) + static_cast<std::size_t>(IsBeyond(right));
    }
    return limited;
}

}  // namespace mavrin2::dusoro
