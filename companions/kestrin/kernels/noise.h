#pragma once

#include <array>
#include <cstdint>

#include "companions/kestrin/kernels/effect.h"

namespace mavrin2::kestrin {

enum class NoiseColor : std::int32_t {
    White = 0,  // equal power in equal bands
    Pink = 1,   // −3 dB an octave
    Brown = 2   // −6 dB an octave, level below 10 Hz
};

// Random numbers, uniform and the same in every run: a linear congruential generator of 64 bits
// (Knuth, MMIX), of which the upper half is used.
class RandomNumbers {
public:
    explicit RandomNumbers(std::uint64_t seed = 1) : state_(seed) {}

    // −1 … 1.
    float Next() {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<float>(static_cast<std::int32_t>(state_ >> 32)) * (1 / 2147483648.0F);
    }

private:
    std::uint64_t state_;
};

// Adds noise of a given level.
class Noise final : public Effect {
public:
    // `level` is the root mean square, 1 at full scale. Takes its numbers from `random`, which must
    // outlive it.
    Noise(NoiseColor color, double level, double rate, RandomNumbers& random);

    void Process(std::span<float> block) override;

private:
    float White();
    float Pink(float white);
    float Brown(float white);

    NoiseColor color_;
    float gain_;
    RandomNumbers& random_;
    std::array<float, 6> pink_{};
    float brown_ = 0;
    float brownDecay_;
};

}  // namespace mavrin2::kestrin
