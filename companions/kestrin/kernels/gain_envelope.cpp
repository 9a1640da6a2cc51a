#include "companions/kestrin/kernels/gain_envelope.h"

#include <algorithm>
#include <cstdint>

namespace mavrin2::kestrin {

GainEnvelope::GainEnvelope(std::vector<float> points, std::size_t length)
    : points_(std::move(points)),
      pointsPerSample_(length < 2 ? 0.0
                                  : (static_cast<double>(points_.size()) - 1) /
                                        (static_cast<double>(length) - 1)) {}

void GainEnvelope::Process(std::span<float> block) {
    if (points_.empty()) return;
    if (points_.size() == 1) {
        const float gain = points_.front();
        for (float& value : block)
            value *= gain;
        return;
    }
    for (std::size_t done = 0; done < block.size();) {
        const double place = static_cast<double>(position_) * pointsPerSample_;
        const std::size_t segment = std::min(static_cast<std::size_t>(place), points_.size() - 2);
        // The samples that are left of this line, at least this one.
        const double left = pointsPerSample_ > 0
                                ? (static_cast<double>(segment) + 1 - place) / pointsPerSample_
                                : 1.0;
        const std::size_t count =
            std::min(block.size() - done,
                     left < 1e9 ? std::max<std::size_t>(1, static_cast<std::size_t>(left) + 1)
                                : block.size());
        const double rise = static_cast<double>(points_[segment + 1]) - points_[segment];
        const auto first =
            static_cast<float>(points_[segment] + rise * (place - static_cast<double>(segment)));
        const auto step = static_cast<float>(rise * pointsPerSample_);
        for (std::size_t i = 0; i < count; ++i)
            block[done + i] *= first + step * static_cast<float>(static_cast<std::int32_t>(i));
        done += count;
        position_ += count;
    }
}

}  // namespace mavrin2::kestrin
