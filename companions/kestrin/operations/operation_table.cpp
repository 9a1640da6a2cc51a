#include "companions/kestrin/operations/operation_table.h"

#include "companions/kestrin/operations/makers.h"

namespace mavrin2::kestrin {
namespace {

// Gains and depths are in percent, times in milliseconds.
constexpr Parameter Percent(const char* name, double high, double neutral) {
    return {name, 0, high, neutral};
}
constexpr Parameter Threshold(const char* name) {
    return {name, -96, 0, -96};
}
constexpr Parameter Milliseconds(const char* name, double high) {
    return {name, 0, high, 0};
}
constexpr Parameter Frequency(const char* name = "Frequency") {
    return {name, 1, 192000, 1000};
}
constexpr Parameter kSteepness{"Steepness", 1, 8, 1};
constexpr Parameter kGain{"dbGain", -60, 40, 0};
constexpr Parameter kFeedback{"FeedBackGain", -95, 95, 0};
constexpr Parameter kMixGain{"", -10000, 10000, 0};
constexpr Parameter kMixDepth = Percent("MixDepth", 100, 0);

constexpr Parameter Named(const char* name, Parameter parameter) {
    parameter.Name = name;
    return parameter;
}

std::vector<Parameter> SweptDelayParameters(double longest) {
    return {{"DelayRate", 0.1, longest, 1},
            kMixDepth,
            kFeedback,
            Percent("SweepDepth", 100, 0),
            {"SweepRate", 0.01, 20, 1},
            {"SweepPhase", -360, 360, 0}};
}

std::vector<Operation> MakeTable() {
    const std::vector<Parameter> filter = {Frequency(), kSteepness};
    const std::vector<Parameter> gainFilter = {kGain, Frequency(), kSteepness};
    return {
        {.Name = "MixStereoChannels",
         .Values = {{"LLAmp", -10000, 10000, 100},
                    Named("LRAmp", kMixGain),
                    Named("RLAmp", kMixGain),
                    {"RRAmp", -10000, 10000, 100}},
         .How = &MakeChannelMix,
         .FrameSize = 2},
        {.Name = "Resample", .Values = {{"Rate", 10, 1000, 100}}, .How = kResampling},
        {.Name = "PitchShift", .Values = {{"Rate", 25, 400, 100}}, .How = kPitchShifting},
        {.Name = "TimeStretch", .Values = {{"Rate", 25, 400, 100}}, .How = kTimeStretching},
        {.Name = "AddNoise",
         .Values = {{"dbNoiseLevel", -120, 0, -120}, {"NoiseType", 0, 2, 0}},
         .How = &MakeNoise},
        {.Name = "TrimStart",
         .Values = {Threshold("dbTrimLevel"), Milliseconds("FadeTime", 60000)},
         .How = &TrimSoundStart,
         .Smoothed = false},
        {.Name = "TrimEnd",
         .Values = {Threshold("dbTrimLevel"), Milliseconds("FadeTime", 60000)},
         .How = &TrimSoundEnd,
         .Smoothed = false},
        {.Name = "DeleteSilence",
         .Values = {Threshold("dbThreshold"), Milliseconds("AttackTime", 60000),
                    Milliseconds("ReleaseTime", 60000)},
         .How = &DeleteSoundSilence,
         .Smoothed = false},
        {.Name = "Silence", .How = &MakeSilence},
        {.Name = "Reverse", .How = &ReverseSamples},
        {.Name = "Invert", .How = &MakeInvert},
        {.Name = "Amplify", .Values = {Percent("Amp", 10000, 100)}, .How = &MakeAmplify},
        // Their gains at the region's ends are what was asked for.
        {.Name = "Fade",
         .Values = {Percent("AmpLeft", 10000, 100), Percent("AmpRight", 10000, 100)},
         .How = &MakeFade,
         .Smoothed = false},
        {.Name = "Normalize",
         .Values = {Percent("Normalization", 100, 100), {"DCBiasAdjust", -32768, 32767, 0}},
         .How = &MakeNormalize,
         .Analysis = 0.3},
        {.Name = "Vibrato",
         .Values = {{"SweepDepth", 0, 1200, 0},
                    {"SweepFrequency", 0.1, 20, 5},
                    {"SweepPhase", -360, 360, 0}},
         .How = &MakeVibrato},
        {.Name = "Envelope",
         .Arrays = {Percent("EnvelopeArray", 10000, 100)},
         .How = &MakeEnvelope,
         .Smoothed = false},
        {.Name = "Compressor",
         .Values = {Named("dbThreshold", {"", -96, 0, 0}),
                    {"CompressionRate", 1, 100, 1},
                    {"RMSTime", 1, 10000, 50}},
         .How = &MakeCompressor,
         .Analysis = 0.5},
        {.Name = "Expander",
         .Values = {Threshold("dbThreshold"),
                    {"ExpansionRate", 1, 100, 1},
                    {"RMSTime", 1, 10000, 50}},
         .How = &MakeExpander,
         .Analysis = 0.5},
        {.Name = "Delay",
         .Values = {{"DelayTime", 1, 10000, 1}, kMixDepth, kFeedback},
         .How = &MakeDelay},
        {.Name = "Flanger", .Values = SweptDelayParameters(20), .How = &MakeFlanger},
        {.Name = "Chorus", .Values = SweptDelayParameters(100), .How = &MakeChorus},
        {.Name = "Phaser",
         .Values = {{"DelayTime", 0.5, 20, 5}, kMixDepth, kFeedback},
         .How = &MakePhaser},
        {.Name = "Reverb",
         .Values = {{"DelayTime", 1, 200, 20},
                    kMixDepth,
                    Percent("FeedBackGain", 98, 0),
                    Percent("ReverbrationGain", 100, 0),
                    {"ReverbrationFrequency", 100, 192000, 5000},
                    {"nTapDelay", 0, 64, 0}},
         .How = &MakeReverb},
        {.Name = "LowPassFilter", .Values = filter, .How = &MakeLowPass},
        {.Name = "HighPassFilter", .Values = filter, .How = &MakeHighPass},
        {.Name = "BandPassFilter", .Values = filter, .How = &MakeBandPass},
        {.Name = "NotchFilter", .Values = filter, .How = &MakeNotch},
        {.Name = "PeakEQFilter", .Values = gainFilter, .How = &MakePeak},
        {.Name = "LowShelfFilter", .Values = gainFilter, .How = &MakeLowShelf},
        {.Name = "HighShelfFilter", .Values = gainFilter, .How = &MakeHighShelf},
        {.Name = "Equalizer",
         .Arrays = {Named("dbGainArray", kGain), Frequency("FreqArray")},
         .How = &MakeEqualizer},
        {.Name = "FFTFilter", .Arrays = {Percent("FFTArray", 10000, 100)}, .How = &MakeFFTFilter},
        {.Name = "FIRFilter",
         .Values = {{"Quality", 3, 1023, 255}},
         .Arrays = {{"FreqArray", 0, 192000, 0},
                    {"dbGainArray", -200, 40, 0},
                    {"WeightArray", 0.001, 1000, 1}},
         .How = &MakeFIRFilter,
         .Analysis = 0.3},
    };
}

}  // namespace

std::span<const Operation> Operations() {
    static const std::vector<Operation> table = MakeTable();
    return table;
}

}  // namespace mavrin2::kestrin
