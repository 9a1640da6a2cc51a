#pragma once

#include "automation/interface_description.h"
#include "companions/contracts/identifiers.h"

namespace mavrin2::contracts {

// The transform companion: the signal processing of all operations on a selection.
//
// A block is a one-dimensional array of signed 16-bit samples, one channel or, for the operations
// that say so, interleaved frames. It goes in by the address of the caller's variable and comes
// back there, changed in place, shortened, or replaced by another array. The channels of one sound
// come one after the other and are treated alike; between two sounds a switch of smoothing is put.
// Arrays of single-precision numbers belong to the caller and are only read.
//
// The description holds the meaning and the range of every parameter. What is outside of its range
// is limited, what is not a number is replaced by a value that changes nothing, and an array that
// is missing or of another kind counts as empty. While an operation runs, Progress
// (_IKestrin2Events) is fired with 0 to 99 percent, then Done. A failing status leaves the block as
// it was, or partly processed after Abort.
struct IKestrin2 : public IDispatch {
    static constexpr IID Id = IID_IKestrin2;

    MAVRIN2_RESERVED(Member1, 1)
    MAVRIN2_RESERVED(Member2, 2)
    MAVRIN2_RESERVED(Member3, 3)
    MAVRIN2_RESERVED(Member4, 4)
    MAVRIN2_RESERVED(Member5, 5)
    MAVRIN2_RESERVED(Member6, 6)
    // Interleaved frames of two channels.
    virtual HRESULT STDMETHODCALLTYPE MixStereoChannels(SAFEARRAY** samples, FLOAT LLAmp,
                                                        FLOAT LRAmp, FLOAT RLAmp, FLOAT RRAmp) = 0;
    MAVRIN2_RESERVED(Member8, 8)
    // One channel, as all up to AddNoise.
    virtual HRESULT STDMETHODCALLTYPE Resample(SAFEARRAY** samples, FLOAT Rate) = 0;
    virtual HRESULT STDMETHODCALLTYPE PitchShift(SAFEARRAY** samples, FLOAT Rate) = 0;
    virtual HRESULT STDMETHODCALLTYPE TimeStretch(SAFEARRAY** samples, FLOAT Rate) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddNoise(SAFEARRAY** samples, FLOAT dbNoiseLevel,
                                               LONG NoiseType) = 0;
    // Interleaved frames or one channel; whether it is the one or the other is guessed.
    virtual HRESULT STDMETHODCALLTYPE TrimStart(SAFEARRAY** samples, FLOAT dbTrimLevel,
                                                FLOAT FadeTime) = 0;
    virtual HRESULT STDMETHODCALLTYPE TrimEnd(SAFEARRAY** samples, FLOAT dbTrimLevel,
                                              FLOAT FadeTime) = 0;
    // Interleaved frames of as many channels as were put last.
    virtual HRESULT STDMETHODCALLTYPE DeleteSilence(SAFEARRAY** samples, FLOAT dbThreshold,
                                                    FLOAT AttackTime, FLOAT ReleaseTime) = 0;
    // One channel, as all that follow.
    virtual HRESULT STDMETHODCALLTYPE Silence(SAFEARRAY** samples) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reverse(SAFEARRAY** samples) = 0;
    virtual HRESULT STDMETHODCALLTYPE Invert(SAFEARRAY** samples) = 0;
    virtual HRESULT STDMETHODCALLTYPE Amplify(SAFEARRAY** samples, FLOAT Amp) = 0;
    virtual HRESULT STDMETHODCALLTYPE Fade(SAFEARRAY** samples, FLOAT AmpLeft, FLOAT AmpRight) = 0;
    virtual HRESULT STDMETHODCALLTYPE Normalize(SAFEARRAY** samples, FLOAT Normalization,
                                                VARIANT_BOOL DCBiasAdjust) = 0;
    virtual HRESULT STDMETHODCALLTYPE Vibrato(SAFEARRAY** samples, FLOAT SweepDepth,
                                              FLOAT SweepFrequency, FLOAT SweepPhase) = 0;
    virtual HRESULT STDMETHODCALLTYPE Envelope(SAFEARRAY** samples, SAFEARRAY** EnvelopeArray) = 0;
    virtual HRESULT STDMETHODCALLTYPE Compressor(SAFEARRAY** samples, FLOAT dbThreshold,
                                                 FLOAT CompressionRate, FLOAT RMSTime) = 0;
    virtual HRESULT STDMETHODCALLTYPE Expander(SAFEARRAY** samples, FLOAT dbThreshold,
                                               FLOAT ExpansionRate, FLOAT RMSTime) = 0;
    virtual HRESULT STDMETHODCALLTYPE Delay(SAFEARRAY** samples, FLOAT DelayTime, FLOAT MixDepth,
                                            FLOAT FeedBackGain) = 0;
    virtual HRESULT STDMETHODCALLTYPE Flanger(SAFEARRAY** samples, FLOAT DelayRate, FLOAT MixDepth,
                                              FLOAT FeedBackGain, FLOAT SweepDepth, FLOAT SweepRate,
                                              FLOAT SweepPhase) = 0;
    virtual HRESULT STDMETHODCALLTYPE Chorus(SAFEARRAY** samples, FLOAT DelayRate, FLOAT MixDepth,
                                             FLOAT FeedBackGain, FLOAT SweepDepth, FLOAT SweepRate,
                                             FLOAT SweepPhase) = 0;
    virtual HRESULT STDMETHODCALLTYPE Phaser(SAFEARRAY** samples, FLOAT DelayTime, FLOAT MixDepth,
                                             FLOAT FeedBackGain) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reverb(SAFEARRAY** samples, FLOAT DelayTime, FLOAT MixDepth,
                                             FLOAT FeedBackGain, FLOAT ReverbrationGain,
                                             FLOAT ReverbrationFrequency, LONG nTapDelay) = 0;
    virtual HRESULT STDMETHODCALLTYPE LowPassFilter(SAFEARRAY** samples, FLOAT Frequency,
                                                    FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE HighPassFilter(SAFEARRAY** samples, FLOAT Frequency,
                                                     FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE BandPassFilter(SAFEARRAY** samples, FLOAT Frequency,
                                                     FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE NotchFilter(SAFEARRAY** samples, FLOAT Frequency,
                                                  FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE PeakEQFilter(SAFEARRAY** samples, FLOAT dbGain,
                                                   FLOAT Frequency, FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE LowShelfFilter(SAFEARRAY** samples, FLOAT dbGain,
                                                     FLOAT Frequency, FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE HighShelfFilter(SAFEARRAY** samples, FLOAT dbGain,
                                                      FLOAT Frequency, FLOAT Steepness) = 0;
    virtual HRESULT STDMETHODCALLTYPE Equalizer(SAFEARRAY** samples, SAFEARRAY** dbGainArray,
                                                SAFEARRAY** FreqArray) = 0;
    virtual HRESULT STDMETHODCALLTYPE FFTFilter(SAFEARRAY** samples, SAFEARRAY** FFTArray) = 0;
    virtual HRESULT STDMETHODCALLTYPE FIRFilter(SAFEARRAY** samples, SAFEARRAY** FreqArray,
                                                SAFEARRAY** dbGainArray, SAFEARRAY** WeightArray,
                                                LONG Quality) = 0;
    MAVRIN2_RESERVED(Member41, 41)
    MAVRIN2_RESERVED(Member42, 42)
    // Makes a running operation return soon; without one it does nothing. May be called from inside
    // an event and from any thread.
    virtual HRESULT STDMETHODCALLTYPE Abort() = 0;
    MAVRIN2_RESERVED(Member44, 44)
    MAVRIN2_RESERVED(Member45, 45)
    MAVRIN2_RESERVED(Member46, 46)
    MAVRIN2_RESERVED(Member47, 47)
    // Whether the beginning (the end) of a block crossfades from (to) the original sound.
    virtual HRESULT STDMETHODCALLTYPE put_SetSmoothingFirst(SHORT Value) = 0;
    MAVRIN2_RESERVED(Member49, 49)
    virtual HRESULT STDMETHODCALLTYPE put_SetSmoothingSecond(SHORT Value) = 0;
    MAVRIN2_RESERVED(Member51, 51)
    // Of these crossfades; nothing below 1 smooths.
    virtual HRESULT STDMETHODCALLTYPE put_SetSmoothTime(LONG Value) = 0;
    MAVRIN2_RESERVED(Member53, 53)
    // Of the blocks to come, 100 … 768000.
    virtual HRESULT STDMETHODCALLTYPE put_SetSampleRate(LONG Value) = 0;
    MAVRIN2_RESERVED(Member55, 55)
    virtual HRESULT STDMETHODCALLTYPE put_SetChannelCount(LONG Value) = 0;
};

const automation::LibraryDescription& KestrinLibrary();

}  // namespace mavrin2::contracts

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<contracts::IKestrin2>();
}  // namespace mavrin2::automation
