#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

#include "companions/kestrin/kernels/sample_conversion.h"

namespace mavrin2::kestrin {

// A sound that may be read beyond its ends: there its first or last sample is held.
class HeldSound {
public:
    // `samples`, at least one, stay with the caller.
    explicit HeldSound(std::span<const std::int16_t> samples) : samples_(samples) {}

    std::int64_t Size() const { return static_cast<std::int64_t>(samples_.size()); }

    void Read(std::int64_t first, std::span<float> to) const {
        const auto wanted = static_cast<std::int64_t>(to.size());
        const std::int64_t from = std::clamp<std::int64_t>(first, 0, Size());
        const std::int64_t end = std::clamp<std::int64_t>(first + wanted, from, Size());
        const auto before = static_cast<std::size_t>(std::clamp<std::int64_t>(-first, 0, wanted));
        const auto count = static_cast<std::size_t>(end - from);
        std::ranges::fill(to.first(before), ToValue(samples_.front()));
        ToFloat(samples_.subspan(static_cast<std::size_t>(from), count), to.subspan(before, count));
        std::ranges::fill(to.subspan(before + count), ToValue(samples_.back()));
    }

private:
    static float ToValue(std::int16_t sample) { return static_cast<float>(sample) / kFullScale; }

    std::span<const std::int16_t> samples_;
};

}  // namespace mavrin2::kestrin
