#include "control/signal/mixing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace mavrin2::signal {

std::size_t MixLimited(std::span<std::int16_t> sound, std::span<const std::int16_t> added,
                       double soundGain, double addedGain) {
    // Integers of 32 bits are compared several at a time.
    constexpr double kMost = 2e9;
    std::uint32_t limited = 0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double mixed = sound[i] * soundGain + added[i] * addedGain;
        const auto whole = static_cast<std::int32_t>(std::max(-kMost, std::min(kMost, mixed)));
        const std::int32_t fitting = std::max(-32768, std::min(32767, whole));
        sound[i] = static_cast<std::int16_t>(fitting);
        limited += static_cast<std::uint32_t>(whole != fitting);
    }
    return limited;
}

void Crossfade(std::span<std::int16_t> sound, std::span<const std::int16_t> old,
               std::size_t channels) {
    const std::size_t frames = old.size() / channels;
    for (std::size_t i = 0; i < std::min(frames, sound.size() / channels); ++i) {
        const double w =
            std::sin(static_cast<double>(i) * std::numbers::pi / static_cast<double>(2 * frames));
        for (std::size_t place = i * channels; place < (i + 1) * channels; ++place)
            sound[place] = static_cast<std::int16_t>(sound[place] * w + old[place] * (1 - w));
    }
}

}  // namespace mavrin2::signal
