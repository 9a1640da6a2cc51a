#pragma once

#include <cstddef>
#include <span>

namespace mavrin2::kestrin {

// Processes a sound block by block, in place. Samples are floating point, ±1 is full scale; values
// beyond it are limited when they become 16 bits again. One instance processes one sound.
class Effect {
public:
    virtual ~Effect() = default;

    // Any number of samples, which follow those of the call before.
    virtual void Process(std::span<float> block) = 0;

    // Samples by which the output lags behind the input.
    virtual std::size_t Latency() const { return 0; }

    // Samples that should pass before the first one of the sound, for a filter to settle. The
    // output for them is dropped.
    virtual std::size_t LeadIn() const { return 0; }
};

}  // namespace mavrin2::kestrin
