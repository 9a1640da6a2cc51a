#include "bench/plain_convolution.h"

#include <cstddef>

namespace mavrin2::bench {

void ConvolvePlainly(std::span<const double> input, std::span<const double> taps,
                     std::span<double> output) {
    for (std::size_t i = 0; i < input.size(); ++i) {
        double sum = 0;
        for (std::size_t k = 0; k < taps.size() && k <= i; ++k)
            sum += input[i - k] * taps[k];
        output[i] = sum;
    }
}

}  // namespace mavrin2::bench
