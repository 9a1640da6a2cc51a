#pragma once

#include "companions/contracts/kestrin.h"
#include "control/editor/operation.h"

namespace mavrin2::processing {

// How the selected region is handed to the companion.
enum class BlockKind {
    PerChannel,      // one block for each channel; only those whose Operation switch is set
    LengthChanging,  // one block for each channel, always all of them
    Whole            // one block, interleaved
};

// One operation of the Transform object: the status while it runs, its blocks, and the companion's
// operation, which gets the block and the host's parameters as they are.
template <class... Parameters>
struct TransformOperation {
    editor::StatusConstants Status;
    BlockKind Blocks;
    HRESULT (STDMETHODCALLTYPE contracts::IKestrin2::*Call)(SAFEARRAY**, Parameters...);
};

template <class... Parameters>
TransformOperation(editor::StatusConstants, BlockKind,
                   HRESULT (STDMETHODCALLTYPE contracts::IKestrin2::*)(SAFEARRAY**, Parameters...))
    -> TransformOperation<Parameters...>;

// Trim and DeleteSilence take more than one call; see TransformPipeline.
namespace operations {

using Kestrin = contracts::IKestrin2;
using Status = editor::StatusConstants;
using enum BlockKind;

// clang-format off
inline constexpr TransformOperation Resample{Status::Resample, LengthChanging, &Kestrin::Resample};
inline constexpr TransformOperation PitchShift{Status::PitchShift, LengthChanging, &Kestrin::PitchShift};
inline constexpr TransformOperation TimeStretch{Status::TimeStretch, LengthChanging, &Kestrin::TimeStretch};
inline constexpr TransformOperation AddNoise{Status::AddNoise, PerChannel, &Kestrin::AddNoise};
inline constexpr TransformOperation MixStereoChannels{Status::MixStereoChannels, Whole, &Kestrin::MixStereoChannels};
inline constexpr TransformOperation Silence{Status::Silence, PerChannel, &Kestrin::Silence};
inline constexpr TransformOperation Reverse{Status::Reverse, PerChannel, &Kestrin::Reverse};
inline constexpr TransformOperation Invert{Status::Invert, PerChannel, &Kestrin::Invert};
inline constexpr TransformOperation Amplify{Status::Amplify, PerChannel, &Kestrin::Amplify};
inline constexpr TransformOperation Fade{Status::Fade, PerChannel, &Kestrin::Fade};
inline constexpr TransformOperation Normalize{Status::Normalize, PerChannel, &Kestrin::Normalize};
inline constexpr TransformOperation Vibrato{Status::Vibrato, PerChannel, &Kestrin::Vibrato};
inline constexpr TransformOperation Envelope{Status::Envelope, PerChannel, &Kestrin::Envelope};
inline constexpr TransformOperation Compressor{Status::Compressor, PerChannel, &Kestrin::Compressor};
inline constexpr TransformOperation Expander{Status::Expander, PerChannel, &Kestrin::Expander};
inline constexpr TransformOperation Delay{Status::Delay, PerChannel, &Kestrin::Delay};
inline constexpr TransformOperation Flanger{Status::Flanger, PerChannel, &Kestrin::Flanger};
inline constexpr TransformOperation Chorus{Status::Chorus, PerChannel, &Kestrin::Chorus};
inline constexpr TransformOperation Phaser{Status::Phaser, PerChannel, &Kestrin::Phaser};
inline constexpr TransformOperation Reverb{Status::Reverb, PerChannel, &Kestrin::Reverb};
inline constexpr TransformOperation LowPassFilter{Status::LowPassFilter, PerChannel, &Kestrin::LowPassFilter};
inline constexpr TransformOperation HighPassFilter{Status::HighPassFilter, PerChannel, &Kestrin::HighPassFilter};
inline constexpr TransformOperation BandPassFilter{Status::BandPassFilter, PerChannel, &Kestrin::BandPassFilter};
inline constexpr TransformOperation NotchFilter{Status::NotchFilter, PerChannel, &Kestrin::NotchFilter};
inline constexpr TransformOperation PeakEQFilter{Status::PeakEQFilter, PerChannel, &Kestrin::PeakEQFilter};
inline constexpr TransformOperation Equalizer{Status::Equalizer, PerChannel, &Kestrin::Equalizer};
inline constexpr TransformOperation LowShelfFilter{Status::LowShelfFilter, PerChannel, &Kestrin::LowShelfFilter};
inline constexpr TransformOperation HighShelfFilter{Status::HighShelfFilter, PerChannel, &Kestrin::HighShelfFilter};
inline constexpr TransformOperation FFTFilter{Status::FFTFilter, PerChannel, &Kestrin::FFTFilter};
inline constexpr TransformOperation FIRFilter{Status::FIRFilter, PerChannel, &Kestrin::FIRFilter};
// clang-format on

}  // namespace operations
}  // namespace mavrin2::processing
