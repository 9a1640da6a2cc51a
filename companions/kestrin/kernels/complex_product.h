#pragma once

#include <complex>
#include <cstring>
#include <span>

namespace mavrin2::kestrin {

enum class Factors { AsTheyAre, Conjugated };

// Multiplies each of `values` by the factor at its place, two at a time. The operator of
// std::complex also checks for NaN.
template <Factors kFactors = Factors::AsTheyAre>
void MultiplyBy(std::span<const std::complex<float>> factors,
                std::span<std::complex<float>> values) {
    using Four [[gnu::vector_size(16)]] = float;
    constexpr float kSign = kFactors == Factors::Conjugated ? -1.0F : 1.0F;
    std::size_t i = 0;
    for (; i + 2 <= values.size(); i += 2) {
        Four value;
        Four factor;
        std::memcpy(&value, &values[i], sizeof value);
        std::memcpy(&factor, &factors[i], sizeof factor);
        const Four crossed =
            __builtin_shufflevector(value, value, 1, 0, 3, 2) * Four{-kSign, kSign, -kSign, kSign};
        value = value * __builtin_shufflevector(factor, factor, 0, 0, 2, 2) +
                crossed * __builtin_shufflevector(factor, factor, 1, 1, 3, 3);
        std::memcpy(static_cast<void*>(&values[i]), &value, sizeof value);
    }
    for (; i < values.size(); ++i) {
        const auto value = values[i];
        const auto factor = std::complex<float>(factors[i].real(), kSign * factors[i].imag());
        values[i] = {value.real() * factor.real() - value.imag() * factor.imag(),
                     value.real() * factor.imag() + value.imag() * factor.real()};
    }
}

}  // namespace mavrin2::kestrin
