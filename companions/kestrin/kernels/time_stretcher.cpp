#include "companions/kestrin/kernels/time_stretcher.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

#include "companions/kestrin/kernels/sample_conversion.h"

namespace mavrin2::kestrin {
namespace {

// Long enough for the waves of a low voice, short enough that an attack is not heard twice.
constexpr double kHopSeconds = 0.024;
// By how much less alike than the best place one that is preferred may be.
constexpr float kTolerance = 0.05F;

// A short sound is taken in shorter pieces.
std::size_t HopFor(std::size_t size, double rate) {
    return std::max<std::size_t>(2,
                                 std::min(static_cast<std::size_t>(kHopSeconds * rate), size / 4));
}

}  // namespace

TimeStretcher::TimeStretcher(std::span<const std::int16_t> sound, std::size_t length, double rate,
                             StretchPath guide, const Libraries& libraries)
    : sound_(sound),
      inputPerOutput_(
          length == 0 ? 1.0 : static_cast<double>(sound.size()) / static_cast<double>(length)),
      length_(length),
      hop_(HopFor(sound.size(), rate)),
      reach_(static_cast<std::int32_t>(hop_ / 2)),
      guide_(std::move(guide)),
      fourier_(libraries.MakeFourier(
          std::bit_ceil(2 * hop_ + 2 * static_cast<std::size_t>(reach_) + 1))),
      window_(2 * hop_),
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

void TimeStretcher::Fetch(std::int64_t first, std::span<float> to) const {
    const auto size = static_cast<std::int64_t>(sound_.size());
    const std::int64_t from = std::clamp<std::int64_t>(first, 0, size);
    const std::int64_t end =
        std::clamp<std::int64_t>(first + static_cast<std::int64_t>(to.size()), from, size);
    const auto before =
        std::min(to.size(), static_cast<std::size_t>(std::max<std::int64_t>(0, from - first)));
    const auto count = static_cast<std::size_t>(end - from);
    const auto held = [](std::int16_t sample) { return static_cast<float>(sample) / kFullScale; };
    std::ranges::fill(to.first(before), held(sound_.front()));
    ToFloat(sound_.subspan(static_cast<std::size_t>(from), count), to.subspan(before, count));
    std::ranges::fill(to.subspan(before + count), held(sound_.back()));
}

void TimeStretcher::AddPiece() {
    const std::int64_t hop = static_cast<std::int64_t>(hop_);
    const auto middle = std::llround(static_cast<double>(pieces_ * hop_) * inputPerOutput_);
    // All that is heard of a piece is inside of the sound, if that is long enough.
    const auto heard = std::min(
        hop, static_cast<std::int64_t>(length_) - static_cast<std::int64_t>(pieces_) * hop);
    const std::int64_t last = std::max<std::int64_t>(
        0, static_cast<std::int64_t>(sound_.size()) - hop - std::max<std::int64_t>(0, heard));
    std::int64_t nominal = -hop;
    std::int32_t shift = 0;
    if (pieces_ > 0) {
        nominal = std::clamp<std::int64_t>(middle - hop, 0, last);
        shift =
            BestShift(nominal, static_cast<std::int32_t>(std::max<std::int64_t>(-reach_, -nominal)),
                      static_cast<std::int32_t>(std::min<std::int64_t>(reach_, last - nominal)));
    }
    path_.push_back(shift);
    ++pieces_;

    std::vector<float> piece(window_.size());
    Fetch(nominal + shift, piece);
    for (std::size_t i = 0; i < hop_; ++i) {
        ready_[i] = overlap_[i] + piece[i] * window_[i];
        overlap_[i] = piece[hop_ + i] * window_[hop_ + i];
    }
    next_ = nominal + shift + static_cast<std::int64_t>(hop_);
}

// Where the sound around `nominal` is most like that which would follow the last piece: the largest
// correlation, compared by its share of what both are loud.
std::int32_t TimeStretcher::BestShift(std::int64_t nominal, std::int32_t least, std::int32_t most) {
    if (nominal == next_) return 0;
    const auto time = fourier_->Time();
    const auto spectrum = fourier_->Spectrum();
    const std::size_t length = window_.size();
    const std::size_t places = 2 * static_cast<std::size_t>(reach_) + 1;

    Fetch(next_, time.first(length));
    std::ranges::fill(time.subspan(length), 0.0F);
    double wantedPower = 0;
    for (const float value : time.first(length))
        wantedPower += double{value} * value;
    if (wantedPower < 1e-9) return 0;
    fourier_->Forward();
    wanted_.assign(spectrum.begin(), spectrum.end());

    Fetch(nominal - reach_, time.first(length + places - 1));
    std::ranges::fill(time.subspan(length + places - 1), 0.0F);
    std::vector<double> powers(places);  // of the sound at each place
    double power = 0;
    for (std::size_t i = 0; i < length + places - 1; ++i) {
        power += double{time[i]} * time[i];
        if (i >= length) power -= double{time[i - length]} * time[i - length];
        if (i + 1 >= length) powers[i + 1 - length] = power;
    }
    fourier_->Forward();
    for (std::size_t i = 0; i < spectrum.size(); ++i) {
        const auto a = spectrum[i];
        const auto b = wanted_[i];
        spectrum[i] = {a.real() * b.real() + a.imag() * b.imag(),
                       a.imag() * b.real() - a.real() * b.imag()};
    }
    fourier_->Inverse();

    const auto likeness = [&](std::int32_t shift) {
        const auto place = static_cast<std::size_t>(shift + reach_);
        return time[place] /
               static_cast<float>(std::sqrt(wantedPower * std::max(powers[place], 1e-9)));
    };
    std::int32_t best = 0;
    float highest = likeness(0);
    for (std::int32_t shift = least; shift <= most; ++shift) {
        const float value = likeness(shift);
        if (value > highest) {
            highest = value;
            best = shift;
        }
    }
    if (pieces_ < guide_.size()) {
        const std::int32_t preferred = std::clamp(guide_[pieces_], least, most);
        if (likeness(preferred) >= highest - kTolerance) return preferred;
    }
    return best;
}

}  // namespace mavrin2::kestrin
