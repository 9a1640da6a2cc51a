#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace mavrin2::tests {

using Samples = std::vector<std::int16_t>;

// `count` values without a zero and without a repetition.
inline Samples Noise(std::size_t count) {
    Samples samples(count);
    std::uint32_t state = 12345;
    for (std::int16_t& sample : samples) {
        state = state * 1664525 + 1013904223;
        sample = static_cast<std::int16_t>(state >> 16 | 1);
    }
    return samples;
}

// Without the zeros at both ends.
inline Samples Trimmed(const Samples& samples) {
    const auto sound = [](std::int16_t sample) { return sample != 0; };
    const auto first = std::find_if(samples.begin(), samples.end(), sound);
    const auto last = std::find_if(samples.rbegin(), std::make_reverse_iterator(first), sound);
    return {first, last.base()};
}

}  // namespace mavrin2::tests
