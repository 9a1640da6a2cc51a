#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/enumerations.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// Signal processing of the selection. Every operation succeeds, and leaves its outcome in the
// control's LastErrorNum. Nothing happens unless a document is open, the control idle, something
// selected and a channel's Operation switch set. Resample, PitchShift, TimeStretch, Trim,
// DeleteSilence and MixStereoChannels work on both channels of stereo whatever the switches say.
// Gains and depths are percent where 100 means unchanged or full, times milliseconds, frequencies
// hertz; a value out of range becomes the nearest one.
struct IMavrin2Transform : public IDispatch {
    static constexpr IID Id = IID_IMavrin2Transform;

    virtual HRESULT STDMETHODCALLTYPE Resample(FLOAT Rate) = 0;
    virtual HRESULT STDMETHODCALLTYPE PitchShift(FLOAT Rate) = 0;
    virtual HRESULT STDMETHODCALLTYPE TimeStretch(FLOAT Rate) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddNoise(FLOAT dbNoiseLevel, LONG NoiseType) = 0;
    virtual HRESULT STDMETHODCALLTYPE Trim(FLOAT dbTrimLevel, FLOAT FadeTime,
                                           TrimConstants TrimParam) = 0;
    virtual HRESULT STDMETHODCALLTYPE DeleteSilence(FLOAT dbThreshold, FLOAT AttackTime,
                                                    FLOAT ReleaseTime) = 0;
    // At the cursor, or in place of the selection; needs neither selection nor switches.
    virtual HRESULT STDMETHODCALLTYPE InsertSilence(LONG Millisec) = 0;
    // Stereo documents only.
    virtual HRESULT STDMETHODCALLTYPE MixStereoChannels(FLOAT LLAmp, FLOAT LRAmp, FLOAT RLAmp,
                                                        FLOAT RRAmp) = 0;
    virtual HRESULT STDMETHODCALLTYPE Silence() = 0;
    virtual HRESULT STDMETHODCALLTYPE Reverse() = 0;
    virtual HRESULT STDMETHODCALLTYPE Invert() = 0;
    virtual HRESULT STDMETHODCALLTYPE Amplify(FLOAT Amp) = 0;
    virtual HRESULT STDMETHODCALLTYPE Fade(FLOAT AmpLeft, FLOAT AmpRight) = 0;
    virtual HRESULT STDMETHODCALLTYPE Normalize(FLOAT Normalization, VARIANT_BOOL DCBiasAdjust) = 0;
    virtual HRESULT STDMETHODCALLTYPE Vibrato(FLOAT SweepDepth, FLOAT SweepFrequency,
                                              FLOAT SweepPhase) = 0;
    virtual HRESULT STDMETHODCALLTYPE Envelope(SAFEARRAY** EnvelopeArray) = 0;
    virtual HRESULT STDMETHODCALLTYPE Compressor(FLOAT dbThreshold, FLOAT CompressionRate,
                                                 FLOAT RMSTime) = 0;
    virtual HRESULT STDMETHODCALLTYPE Expander(FLOAT dbThreshold, FLOAT ExpansionRate,
                                               FLOAT RMSTime) = 0;
    virtual HRESULT STDMETHODCALLTYPE Delay(FLOAT DelayTime, FLOAT MixDepth,
                                            FLOAT FeedBackGain) = 0;
    virtual HRESULT STDMETHODCALLTYPE Flanger(FLOAT DelayRate, FLOAT MixDepth, FLOAT FeedBackGain,
                                              FLOAT SweepDepth, FLOAT SweepRate,
                                              FLOAT SweepPhase) = 0;
    virtual HRESULT STDMETHODCALLTYPE Chorus(FLOAT DelayRate, FLOAT MixDepth, FLOAT FeedBackGain,
                                             FLOAT SweepDepth, FLOAT SweepRate,
                                             FLOAT SweepPhase) = 0;
    virtual HRESULT STDMETHODCALLTYPE Phaser(FLOAT DelayTime, FLOAT MixDepth,
                                             FLOAT FeedBackGain) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reverb(FLOAT DelayTime, FLOAT MixDepth, FLOAT FeedBackGain,
                                             FLOAT ReverbrationGain, FLOAT ReverbrationFrequency,
                                             LONG nTapDelay) = 0;
    virtual HRESULT STDMETHODCALLTYPE LowPassFilter(FLOAT Frequency, FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE HighPassFilter(FLOAT Frequency, FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE BandPassFilter(FLOAT Frequency, FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE NotchFilter(FLOAT Frequency, FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE PeakEQFilter(FLOAT dbGain, FLOAT Frequency,
                                                   FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE Equalizer(SAFEARRAY** dbGainArray, SAFEARRAY** FreqArray) = 0;
    virtual HRESULT STDMETHODCALLTYPE LowShelfFilter(FLOAT dbGain, FLOAT Frequency,
                                                     FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE HighShelfFilter(FLOAT dbGain, FLOAT Frequency,
                                                      FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE FFTFilter(SAFEARRAY** FFTArray) = 0;
    virtual HRESULT STDMETHODCALLTYPE FIRFilter(SAFEARRAY** FreqArray, SAFEARRAY** dbGainArray,
                                                SAFEARRAY** WeightArray, LONG Quality) = 0;

    // Whether the ends of the processed region are blended into the sound around it; stored as
    // written, 1 at first.
    virtual HRESULT STDMETHODCALLTYPE get_SmoothEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SmoothEnabled(VARIANT_BOOL Value) = 0;
    // Length of that blend in milliseconds, 10 at first.
    virtual HRESULT STDMETHODCALLTYPE get_SmoothTime(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SmoothTime(LONG Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Transform>();
}  // namespace mavrin2::automation
