#include "companions/kestrin/kernels/convolution.h"

#include <algorithm>
#include <bit>

namespace mavrin2::kestrin {
namespace {

// The size with the least work for each sample: some four times the filter, and not so small that
// the calls count, nor so large that it leaves the cache.
std::size_t SizeFor(std::size_t taps) {
    return std::max(std::bit_ceil(2 * taps),
                    std::clamp<std::size_t>(std::bit_ceil(4 * taps), 1024, 16384));
}

// Written out: the operator of std::complex also looks for numbers that are none.
void Multiply(std::span<std::complex<float>> values, std::span<const std::complex<float>> factors) {
    auto* value = reinterpret_cast<float*>(values.data());
    const auto* factor = reinterpret_cast<const float*>(factors.data());
    for (std::size_t i = 0; i < 2 * values.size(); i += 2) {
        const float real = value[i] * factor[i] - value[i + 1] * factor[i + 1];
        value[i + 1] = value[i] * factor[i + 1] + value[i + 1] * factor[i];
        value[i] = real;
    }
}

}  // namespace

Convolution::Convolution(std::span<const float> impulse, std::size_t delay,
                         const Libraries& libraries)
    : delay_(delay),
      fourier_(libraries.MakeFourier(SizeFor(impulse.size()))),
      history_(impulse.size() - 1),
      hop_(fourier_->Time().size() - history_.size()) {
    ready_.resize(hop_);
    std::ranges::fill(fourier_->Time(), 0.0F);
    std::ranges::copy(impulse, fourier_->Time().begin());
    fourier_->Forward();
    response_.assign(fourier_->Spectrum().begin(), fourier_->Spectrum().end());
}

void Convolution::Process(std::span<float> block) {
    while (!block.empty()) {
        const std::size_t count = std::min(block.size(), hop_ - filled_);
        std::copy_n(
            block.begin(), count,
            fourier_->Time().begin() + static_cast<std::ptrdiff_t>(history_.size() + filled_));
        std::copy_n(ready_.begin() + static_cast<std::ptrdiff_t>(filled_), count, block.begin());
        filled_ += count;
        if (filled_ == hop_) Transform();
        block = block.subspan(count);
    }
}

void Convolution::Transform() {
    const auto time = fourier_->Time();
    std::ranges::copy(history_, time.begin());
    std::copy(time.end() - static_cast<std::ptrdiff_t>(history_.size()), time.end(),
              history_.begin());
    fourier_->Forward();
    Multiply(fourier_->Spectrum(), response_);
    fourier_->Inverse();
    std::copy_n(time.begin() + static_cast<std::ptrdiff_t>(history_.size()), hop_, ready_.begin());
    filled_ = 0;
}

}  // namespace mavrin2::kestrin
