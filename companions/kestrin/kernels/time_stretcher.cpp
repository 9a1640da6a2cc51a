#include "companions/kestrin/kernels/time_stretcher.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace mavrin2::kestrin {
namespace {

// Long enough for the waves of a low voice, short enough that an attack is not heard twice.
constexpr double kHopSeconds = 0.023;

// A short sound is taken in shorter pieces.
std::size_t HopFor(std::size_t size, double rate) {
    return std::max<std::size_t>(2,
                                 std::min(static_cast<std::size_t>(kHopSeconds * rate), size / 4));
}

}  // namespace

TimeStretcher::TimeStretcher(std::span<const std::int16_t> sound, std::size_t length, double rate,
                             StretchPath guide, const Libraries& libraries)
    : sound_(sound),
      length_(length),
      inputPerOutput_(
          length == 0 ? 1.0 : static_cast<double>(sound.size()) / static_cast<double>(length)),
      hop_(HopFor(sound.size(), rate)),
      reach_(static_cast<std::int32_t>(hop_ / 2)),
      guide_(std::move(guide)),
      matcher_(sound_, hop_, reach_, rate, libraries),
      window_(2 * hop_),
      piece_(2 * hop_),
      overlap_(hop_),
      ready_(hop_),
      taken_(hop_) {
    for (std::size_t i = 0; i < window_.size(); ++i)
        window_[i] =
            static_cast<float>(0.5 - 0.5 * std::cos(std::numbers::pi * static_cast<double>(i) /
                                                    static_cast<double>(hop_)));
    // The first piece has its middle at the first sample, where the sound begins anyway.
    AddPiece();
}

void TimeStretcher::Read(std::span<float> out) {
    while (!out.empty()) {
        if (taken_ == hop_) {
            AddPiece();
            taken_ = 0;
        }
        const std::size_t count = std::min(out.size(), hop_ - taken_);
        std::copy_n(ready_.begin() + static_cast<std::ptrdiff_t>(taken_), count, out.begin());
        taken_ += count;
        out = out.subspan(count);
    }
}

void TimeStretcher::AddPiece() {
    const auto hop = static_cast<std::int64_t>(hop_);
    std::int64_t nominal = -hop;
    std::int32_t shift = 0;
    if (pieces_ > 0) {
        // All that is heard of a piece is inside of the sound, if that is long enough.
        const std::int64_t heard = std::clamp<std::int64_t>(
            static_cast<std::int64_t>(length_) - static_cast<std::int64_t>(pieces_ * hop_), 0, hop);
        const std::int64_t last = std::max<std::int64_t>(0, sound_.Size() - hop - heard);
        const auto middle = std::llround(static_cast<double>(pieces_ * hop_) * inputPerOutput_);
        nominal = std::clamp<std::int64_t>(middle - hop, 0, last);
        if (nominal != next_) {
            const std::int64_t least = std::max<std::int64_t>(-reach_, -nominal);
            const std::int64_t most = std::min<std::int64_t>(reach_, last - nominal);
            shift = matcher_.BestShift(
                next_, nominal, static_cast<std::int32_t>(least), static_cast<std::int32_t>(most),
                pieces_ < guide_.size() ? std::optional(guide_[pieces_]) : std::nullopt);
        }
    }
    path_.push_back(shift);
    ++pieces_;

    sound_.Read(nominal + shift, piece_);
    for (std::size_t i = 0; i < hop_; ++i) {
        ready_[i] = overlap_[i] + piece_[i] * window_[i];
        overlap_[i] = piece_[hop_ + i] * window_[hop_ + i];
    }
    next_ = nominal + shift + hop;
}

}  // namespace mavrin2::kestrin
