#include "control/signal/mixing.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mavrin2::signal {

void MixLimited(std::span<std::int16_t> sound, std::span<const std::int16_t> added,
                double soundGain, double addedGain) {
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const double mixed = sound[i] * soundGain + added[i] * addedGain;
        sound[i] = static_cast<std::int16_t>(std::max(-32768.0, std::min(32767.0, mixed)));
    }
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
