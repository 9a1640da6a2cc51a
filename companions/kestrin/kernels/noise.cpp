#include "companions/kestrin/kernels/noise.h"

#include <cmath>
#include <numbers>

namespace mavrin2::kestrin {
namespace {

constexpr int kSettling = 1 << 15;

}  // namespace

Noise::Noise(NoiseColor color, double level, double rate, RandomNumbers& random)
    : color_(color),
      gain_(static_cast<float>(level)),
      random_(random),
      brownDecay_(static_cast<float>(std::exp(-2 * std::numbers::pi * 10 / rate))) {
    if (color == NoiseColor::Pink) {
        // The power of the filter's answer to white noise of level 1, summed over its impulse.
        double power = 0;
        for (int i = 0; i < kSettling; ++i) {
            const double value = Pink(i == 0 ? 1.0F : 0.0F);
            power += value * value;
        }
        pink_ = {};
        gain_ /= static_cast<float>(std::sqrt(power));
        for (int i = 0; i < kSettling; ++i)
            Pink(White());
    } else if (color == NoiseColor::Brown) {
        gain_ *= std::sqrt(1 - brownDecay_ * brownDecay_);
        for (int i = 0; i < kSettling; ++i)
            Brown(White());
    }
}

// The sum of four uniform numbers: near enough to a normal distribution, of level 1, and never
// beyond 3.5.
float Noise::White() {
    return (random_.Next() + random_.Next() + random_.Next() + random_.Next()) * 0.8660254F;
}

// P. Kellet's filter of six first-order sections, within 0.05 dB of −3 dB an octave from 9.2 Hz on
// at 44100 Hz.
float Noise::Pink(float white) {
    pink_[0] = 0.99886F * pink_[0] + white * 0.0555179F;
    pink_[1] = 0.99332F * pink_[1] + white * 0.0750759F;
    pink_[2] = 0.96900F * pink_[2] + white * 0.1538520F;
    pink_[3] = 0.86650F * pink_[3] + white * 0.3104856F;
    pink_[4] = 0.55000F * pink_[4] + white * 0.5329522F;
    const float sum =
        pink_[0] + pink_[1] + pink_[2] + pink_[3] + pink_[4] + pink_[5] + white * 0.5362F;
    pink_[5] = white * 0.115926F;
    return sum;
}

float Noise::Brown(float white) {
    brown_ = brown_ * brownDecay_ + white;
    return brown_;
}

void Noise::Process(std::span<float> block) {
    switch (color_) {
        case NoiseColor::White:
            for (float& value : block)
                value += gain_ * White();
            break;
        case NoiseColor::Pink:
            for (float& value : block)
                value += gain_ * Pink(White());
            break;
        case NoiseColor::Brown:
            for (float& value : block)
                value += gain_ * Brown(White());
            break;
    }
}

}  // namespace mavrin2::kestrin
