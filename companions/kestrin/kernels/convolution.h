#pragma once

#include <complex>
#include <memory>
#include <vector>

#include "companions/kestrin/kernels/effect.h"
#include "companions/kestrin/kernels/libraries.h"

namespace mavrin2::kestrin {

// A filter given by its answer to one impulse, applied with the fast Fourier transform ("overlap
// and save"): exact, whatever the blocks, with no seams between them.
class Convolution final : public Effect {
public:
    // `delay` is the place in `impulse` where the answer to a sample belongs in time: 0 for a
    // filter that starts at once, the middle for a symmetrical one.
    Convolution(std::span<const float> impulse, std::size_t delay, const Libraries& libraries);

    void Process(std::span<float> block) override;
    std::size_t Latency() const override { return 2 * hop_ + delay_; }
    std::size_t LeadIn() const override { return history_; }

private:
    void Transform();

    std::size_t delay_;
    std::unique_ptr<ComplexFourier> fourier_;
    std::vector<std::complex<float>> response_;
    std::size_t history_;         // samples that a sample still acts on
    std::size_t hop_;             // samples of one block; two of them are transformed together
    std::vector<float> waiting_;  // the history, then two blocks
    std::vector<float> ready_;    // two blocks
    std::size_t filled_ = 0;
};

}  // namespace mavrin2::kestrin
