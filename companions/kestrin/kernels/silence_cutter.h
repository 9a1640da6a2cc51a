#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "companions/kestrin/kernels/progress.h"

namespace mavrin2::kestrin {

// Samples that are removed, and the rest moved together. All of these return how many samples of
// the span are left, from its first one. Sound above the threshold is never touched; a sample is
// above it when its value, without the sign, is more than `threshold`, in 16-bit units.

struct TrimSettings {
    double Threshold = 0;
    std::size_t Channels = 1;
    std::size_t Fade = 0;  // frames next to the loud part that are kept and faded
};

// Removes what is before the first loud sample, always an even number of samples, so that stereo
// frames stay whole whatever `Channels` says. Nothing is left of a sound that is loud nowhere.
std::size_t TrimStart(std::span<std::int16_t> sound, const TrimSettings& settings,
                      Progress& progress);
// The same at the end.
std::size_t TrimEnd(std::span<std::int16_t> sound, const TrimSettings& settings,
                    Progress& progress);

struct SilenceSettings {
    double Threshold = 0;
    std::size_t Channels = 1;
    std::size_t Attack = 0;   // frames kept before a loud one, faded in
    std::size_t Release = 0;  // frames kept after a loud one, faded out
};

// Removes all silence between loud frames, and before and after them. A frame is loud when one of
// its channels is.
std::size_t DeleteSilence(std::span<std::int16_t> sound, const SilenceSettings& settings,
                          Progress& progress);

// Guesses whether samples are frames of two channels: the wave of one channel moves less from one
// sample to the next than to the next but one; in frames of two it is the other way round, unless
// both channels are nearly the same, when it moves between frames only.
bool LooksInterleaved(std::span<const std::int16_t> sound);

}  // namespace mavrin2::kestrin
