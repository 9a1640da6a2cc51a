#include "companions/kestrin/kernels/convolution.h"

#include <algorithm>
#include <bit>

#include "companions/kestrin/kernels/complex_product.h"

namespace mavrin2::kestrin {
namespace {

// The size with the least work for each sample: some eight times the filter, and not so small that
// the calls count, nor so large that it leaves the cache.
std::size_t SizeFor(std::size_t taps) {
    return std::max(std::bit_ceil(2 * taps),
                    std::clamp<std::size_t>(std::bit_ceil(8 * taps), 1024, 16384));
}

}  // namespace

Convolution::Convolution(std::span<const float> impulse, std::size_t delay,
                         const Libraries& libraries)
    : delay_(delay),
      fourier_(libraries.MakeComplexFourier(SizeFor(impulse.size()))),
      history_(impulse.size() - 1),
      hop_(fourier_->Values().size() - history_),
      waiting_(history_ + 2 * hop_),
      ready_(2 * hop_) {
    std::ranges::fill(fourier_->Values(), std::complex<float>());
    std::ranges::copy(impulse, fourier_->Values().begin());
    fourier_->Forward();
    response_.assign(fourier_->Values().begin(), fourier_->Values().end());
    // The inverse transform does not scale.
    for (auto& factor : response_)
        factor /= static_cast<float>(response_.size());
}

void Convolution::Process(std::span<float> block) {
    while (!block.empty()) {
        const std::size_t count = std::min(block.size(), 2 * hop_ - filled_);
        std::copy_n(block.begin(), count, waiting_.data() + history_ + filled_);
        std::copy_n(ready_.data() + filled_, count, block.begin());
        filled_ += count;
        if (filled_ == 2 * hop_) Transform();
        block = block.subspan(count);
    }
}

void Convolution::Transform() {
    auto values = fourier_->Values();
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = {waiting_[i], waiting_[hop_ + i]};
    std::copy(waiting_.end() - static_cast<std::ptrdiff_t>(history_), waiting_.end(),
              waiting_.begin());
    fourier_->Forward();
    MultiplyBy(response_, fourier_->Values());
    fourier_->Inverse();
    values = fourier_->Values().subspan(history_);
    for (std::size_t i = 0; i < hop_; ++i) {
        ready_[i] = values[i].real();
        ready_[hop_ + i] = values[i].imag();
    }
    filled_ = 0;
}

}  // namespace mavrin2::kestrin
