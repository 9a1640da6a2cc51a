#pragma once

#include "companions/kestrin/operations/operation.h"

// How each operation is made of the kernels, in files by kind.
namespace mavrin2::kestrin {

// levels.cpp
std::unique_ptr<Effect> MakeChannelMix(const Request& request);
std::unique_ptr<Effect> MakeAmplify(const Request& request);
std::unique_ptr<Effect> MakeInvert(const Request& request);
std::unique_ptr<Effect> MakeFade(const Request& request);
std::unique_ptr<Effect> MakeEnvelope(const Request& request);
std::unique_ptr<Effect> MakeNormalize(const Request& request);
std::unique_ptr<Effect> MakeCompressor(const Request& request);
std::unique_ptr<Effect> MakeExpander(const Request& request);
std::unique_ptr<Effect> MakeNoise(const Request& request);

// modulations.cpp
std::unique_ptr<Effect> MakeVibrato(const Request& request);
std::unique_ptr<Effect> MakeDelay(const Request& request);
std::unique_ptr<Effect> MakeFlanger(const Request& request);
std::unique_ptr<Effect> MakeChorus(const Request& request);
std::unique_ptr<Effect> MakePhaser(const Request& request);
std::unique_ptr<Effect> MakeReverb(const Request& request);

// filters.cpp
std::unique_ptr<Effect> MakeLowPass(const Request& request);
std::unique_ptr<Effect> MakeHighPass(const Request& request);
std::unique_ptr<Effect> MakeBandPass(const Request& request);
std::unique_ptr<Effect> MakeNotch(const Request& request);
std::unique_ptr<Effect> MakePeak(const Request& request);
std::unique_ptr<Effect> MakeLowShelf(const Request& request);
std::unique_ptr<Effect> MakeHighShelf(const Request& request);
std::unique_ptr<Effect> MakeEqualizer(const Request& request);
std::unique_ptr<Effect> MakeFFTFilter(const Request& request);
std::unique_ptr<Effect> MakeFIRFilter(const Request& request);

// lengths.cpp
std::size_t MakeSilence(const Request& request, std::span<std::int16_t> sound);
std::size_t ReverseSamples(const Request& request, std::span<std::int16_t> sound);
std::size_t TrimSoundStart(const Request& request, std::span<std::int16_t> sound);
std::size_t TrimSoundEnd(const Request& request, std::span<std::int16_t> sound);
std::size_t DeleteSoundSilence(const Request& request, std::span<std::int16_t> sound);
extern const Rendering kResampling;
extern const Rendering kPitchShifting;
extern const Rendering kTimeStretching;

}  // namespace mavrin2::kestrin
