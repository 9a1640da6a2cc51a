#pragma once

#include "companions/kestrin/operations/operation.h"

namespace mavrin2::kestrin {

enum class OperationId {
    MixStereoChannels,
    Resample,
    PitchShift,
    TimeStretch,
    AddNoise,
    TrimStart,
    TrimEnd,
    DeleteSilence,
    Silence,
    Reverse,
    Invert,
    Amplify,
    Fade,
    Normalize,
    Vibrato,
    Envelope,
    Compressor,
    Expander,
    Delay,
    Flanger,
    Chorus,
    Phaser,
    Reverb,
    LowPassFilter,
    HighPassFilter,
    BandPassFilter,
    NotchFilter,
    PeakEQFilter,
    LowShelfFilter,
    HighShelfFilter,
    Equalizer,
    FFTFilter,
    FIRFilter
};

// All operations, in the order of OperationId.
std::span<const Operation> Operations();

inline const Operation& OperationOf(OperationId id) {
    return Operations()[static_cast<std::size_t>(id)];
}

}  // namespace mavrin2::kestrin
