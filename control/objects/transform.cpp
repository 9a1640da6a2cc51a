#include "control/objects/transform.h"

namespace mavrin2::objects {

namespace operations = processing::operations;
using interfaces::TrimConstants;

STDMETHODIMP CMavrin2Transform::Resample(FLOAT Rate) {
    return Run(operations::Resample, Rate);
}

STDMETHODIMP CMavrin2Transform::PitchShift(FLOAT Rate) {
    return Run(operations::PitchShift, Rate);
}

STDMETHODIMP CMavrin2Transform::TimeStretch(FLOAT Rate) {
    return Run(operations::TimeStretch, Rate);
}

STDMETHODIMP CMavrin2Transform::AddNoise(FLOAT dbNoiseLevel, LONG NoiseType) {
    return Run(operations::AddNoise, dbNoiseLevel, NoiseType);
}

STDMETHODIMP CMavrin2Transform::Trim(FLOAT dbTrimLevel, FLOAT FadeTime, TrimConstants TrimParam) {
    return parts_.Do([&](Parts& parts) { parts.Pipeline.Trim(dbTrimLevel, FadeTime, TrimParam); });
}

STDMETHODIMP CMavrin2Transform::DeleteSilence(FLOAT dbThreshold, FLOAT AttackTime,
                                              FLOAT ReleaseTime) {
    return parts_.Do(
        [&](Parts& parts) { parts.Pipeline.DeleteSilence(dbThreshold, AttackTime, ReleaseTime); });
}

STDMETHODIMP CMavrin2Transform::InsertSilence(LONG Millisec) {
    return parts_.Do([&](Parts& parts) { parts.Pipeline.InsertSilence(Millisec); });
}

STDMETHODIMP CMavrin2Transform::MixStereoChannels(FLOAT LLAmp, FLOAT LRAmp, FLOAT RLAmp,
                                                  FLOAT RRAmp) {
    return parts_.Do(
        [&](Parts& parts) { parts.Pipeline.MixStereoChannels(LLAmp, LRAmp, RLAmp, RRAmp); });
}

STDMETHODIMP CMavrin2Transform::Silence() {
    return Run(operations::Silence);
}

STDMETHODIMP CMavrin2Transform::Reverse() {
    return Run(operations::Reverse);
}

STDMETHODIMP CMavrin2Transform::Invert() {
    return Run(operations::Invert);
}

STDMETHODIMP CMavrin2Transform::Amplify(FLOAT Amp) {
    return Run(operations::Amplify, Amp);
}

STDMETHODIMP CMavrin2Transform::Fade(FLOAT AmpLeft, FLOAT AmpRight) {
    return Run(operations::Fade, AmpLeft, AmpRight);
}

STDMETHODIMP CMavrin2Transform::Normalize(FLOAT Normalization, VARIANT_BOOL DCBiasAdjust) {
    return Run(operations::Normalize, Normalization, DCBiasAdjust);
}

STDMETHODIMP CMavrin2Transform::Vibrato(FLOAT SweepDepth, FLOAT SweepFrequency, FLOAT SweepPhase) {
    return Run(operations::Vibrato, SweepDepth, SweepFrequency, SweepPhase);
}

STDMETHODIMP CMavrin2Transform::Envelope(SAFEARRAY** EnvelopeArray) {
    return Run(operations::Envelope, EnvelopeArray);
}

STDMETHODIMP CMavrin2Transform::Compressor(FLOAT dbThreshold, FLOAT CompressionRate,
                                           FLOAT RMSTime) {
    return Run(operations::Compressor, dbThreshold, CompressionRate, RMSTime);
}

STDMETHODIMP CMavrin2Transform::Expander(FLOAT dbThreshold, FLOAT ExpansionRate, FLOAT RMSTime) {
    return Run(operations::Expander, dbThreshold, ExpansionRate, RMSTime);
}

STDMETHODIMP CMavrin2Transform::Delay(FLOAT DelayTime, FLOAT MixDepth, FLOAT FeedBackGain) {
    return Run(operations::Delay, DelayTime, MixDepth, FeedBackGain);
}

STDMETHODIMP CMavrin2Transform::Flanger(FLOAT DelayRate, FLOAT MixDepth, FLOAT FeedBackGain,
                                        FLOAT SweepDepth, FLOAT SweepRate, FLOAT SweepPhase) {
    return Run(operations::Flanger, DelayRate, MixDepth, FeedBackGain, SweepDepth, SweepRate,
               SweepPhase);
}

STDMETHODIMP CMavrin2Transform::Chorus(FLOAT DelayRate, FLOAT MixDepth, FLOAT FeedBackGain,
                                       FLOAT SweepDepth, FLOAT SweepRate, FLOAT SweepPhase) {
    return Run(operations::Chorus, DelayRate, MixDepth, FeedBackGain, SweepDepth, SweepRate,
               SweepPhase);
}

STDMETHODIMP CMavrin2Transform::Phaser(FLOAT DelayTime, FLOAT MixDepth, FLOAT FeedBackGain) {
    return Run(operations::Phaser, DelayTime, MixDepth, FeedBackGain);
}

STDMETHODIMP CMavrin2Transform::Reverb(FLOAT DelayTime, FLOAT MixDepth, FLOAT FeedBackGain,
                                       FLOAT ReverbrationGain, FLOAT ReverbrationFrequency,
                                       LONG nTapDelay) {
    return Run(operations::Reverb, DelayTime, MixDepth, FeedBackGain, ReverbrationGain,
               ReverbrationFrequency, nTapDelay);
}

STDMETHODIMP CMavrin2Transform::LowPassFilter(FLOAT Frequency, FLOAT Steepness) {
    return Run(operations::LowPassFilter, Frequency, Steepness);
}

STDMETHODIMP CMavrin2Transform::HighPassFilter(FLOAT Frequency, FLOAT Steepness) {
    return Run(operations::HighPassFilter, Frequency, Steepness);
}

STDMETHODIMP CMavrin2Transform::BandPassFilter(FLOAT Frequency, FLOAT Steepness) {
    return Run(operations::BandPassFilter, Frequency, Steepness);
}

STDMETHODIMP CMavrin2Transform::NotchFilter(FLOAT Frequency, FLOAT Steepness) {
    return Run(operations::NotchFilter, Frequency, Steepness);
}

STDMETHODIMP CMavrin2Transform::PeakEQFilter(FLOAT dbGain, FLOAT Frequency, FLOAT Steepness) {
    return Run(operations::PeakEQFilter, dbGain, Frequency, Steepness);
}

STDMETHODIMP CMavrin2Transform::Equalizer(SAFEARRAY** dbGainArray, SAFEARRAY** FreqArray) {
    return Run(operations::Equalizer, dbGainArray, FreqArray);
}

STDMETHODIMP CMavrin2Transform::LowShelfFilter(FLOAT dbGain, FLOAT Frequency, FLOAT Steepness) {
    return Run(operations::LowShelfFilter, dbGain, Frequency, Steepness);
}

STDMETHODIMP CMavrin2Transform::HighShelfFilter(FLOAT dbGain, FLOAT Frequency, FLOAT Steepness) {
    return Run(operations::HighShelfFilter, dbGain, Frequency, Steepness);
}

STDMETHODIMP CMavrin2Transform::FFTFilter(SAFEARRAY** FFTArray) {
    return Run(operations::FFTFilter, FFTArray);
}

STDMETHODIMP CMavrin2Transform::FIRFilter(SAFEARRAY** FreqArray, SAFEARRAY** dbGainArray,
                                          SAFEARRAY** WeightArray, LONG Quality) {
    return Run(operations::FIRFilter, FreqArray, dbGainArray, WeightArray, Quality);
}

STDMETHODIMP CMavrin2Transform::get_SmoothEnabled(VARIANT_BOOL* Value) {
    return parts_.Read(
        Value, [](const Parts& parts) { return parts.Settings.SmoothEnabled; }, VARIANT_BOOL{1});
}

STDMETHODIMP CMavrin2Transform::put_SmoothEnabled(VARIANT_BOOL Value) {
    return parts_.Do([&](Parts& parts) { parts.Settings.SmoothEnabled = Value; });
}

STDMETHODIMP CMavrin2Transform::get_SmoothTime(LONG* Value) {
    return parts_.Read(
        Value, [](const Parts& parts) { return parts.Settings.SmoothTime; }, LONG{10});
}

STDMETHODIMP CMavrin2Transform::put_SmoothTime(LONG Value) {
    return parts_.Do([&](Parts& parts) {
        parts.Settings.SmoothTime = Value;
        parts.Companion.SetSmoothTime(Value);
    });
}

}  // namespace mavrin2::objects
