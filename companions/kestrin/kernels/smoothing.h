#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace mavrin2::kestrin {

struct SmoothingSettings {
    bool Start = false;
    bool End = false;
    std::int32_t Milliseconds = 0;  // as the host gave it: nothing below 1 smooths
};

// Crossfades between original and processed sound at the ends of a region, so that it joins what
// surrounds it without a step. Keeps the original ends before the region is processed.
class Smoothing {
public:
    // A frame is `channels` samples. Each end takes no more than half of the region.
    Smoothing(const SmoothingSettings& settings, std::int32_t rate, std::size_t channels,
              std::span<const std::int16_t> original);

    // `processed` may be longer or shorter than the original; its ends take the crossfades.
    void Apply(std::span<std::int16_t> processed) const;

private:
    std::size_t channels_;
    std::vector<std::int16_t> start_;
    std::vector<std::int16_t> end_;
};

}  // namespace mavrin2::kestrin
