#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "control/signal/remez_exchange.h"

namespace mavrin2::signal {

// Linear-phase FIR low-pass with 50 taps, designed by the Parks–McClellan algorithm. It removes the
// images that linear interpolation leaves above the source's Nyquist frequency. A sum is added up
// tap by tap, newest input first, without fused multiplication: the same samples on every machine.
class CFilter {
public:
    static constexpr std::size_t Taps = 50;

    // Passes 0 … cutoff and stops from 1000 Hz above it (or 0.3 of the way to half the sample rate,
    // where 1000 Hz do not fit) up to 1 Hz below half the sample rate; errors in the stop band
    // weigh `stopWeight` times those in the pass band. Clears the history. Throws
    // std::domain_error, and leaves the filter as it was, when the stop band is empty or no finite
    // solution is found.
    void Design(double cutoff, double sampleRate, double stopWeight);

    // Filters one block that follows the history, which stays as it is. Results above 32767 become
    // 32766, those below −32767 become −32766. `output` is as long as `input` and apart from it.
    // Returns how many results do not fit into 16 bits.
    std::size_t Process(std::span<const double> input, std::span<double> output) const;
    // The same with results truncated toward zero.
    std::size_t Process(std::span<const std::int16_t> input, std::span<std::int16_t> output) const;

    // Makes the last inputs of a block the history of the next one. A block of no more than `Taps`
    // samples leaves the history as it is.
    void KeepHistory(std::span<const std::int16_t> block);

    const std::array<double, Taps>& Coefficients() const { return coefficients_; }
    // Outcome of the last design; the deviation is the largest weighted error.
    double Deviation() const { return deviation_; }
    RemezOutcome DesignResult() const { return designResult_; }

private:
    template <class Sample>
    std::size_t ProcessBlock(std::span<const Sample> input, std::span<Sample> output) const;

    double deviation_ = 0;
    std::array<double, Taps> coefficients_{};
    RemezOutcome designResult_ = RemezOutcome::Converged;
    std::array<double, Taps> history_{};  // oldest first
};

}  // namespace mavrin2::signal
