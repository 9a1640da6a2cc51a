#pragma once

#include "automation/object.h"
#include "control/editor/edit_settings.h"
#include "control/interfaces/transform.h"
#include "control/objects/attachment.h"
#include "control/processing/transform_companion.h"
#include "control/processing/transform_pipeline.h"

namespace mavrin2::objects {

// Signal processing of the selection, as hosts call it.
class CMavrin2Transform final
    : public automation::AutomationObject<CMavrin2Transform, interfaces::IMavrin2Transform> {
public:
    // What a control lends the object.
    struct Parts {
        processing::TransformPipeline& Pipeline;
        processing::TransformCompanion& Companion;
        editor::EditSettings& Settings;
    };

    explicit CMavrin2Transform(IUnknown* outer) : AutomationObject(outer) {}
    ~CMavrin2Transform() = default;

    void Attach(Parts& parts, IUnknown* control) { parts_.Attach(parts, control); }
    void Detach() { parts_.Detach(); }

    STDMETHODIMP Resample(FLOAT Rate) override;
    STDMETHODIMP PitchShift(FLOAT Rate) override;
    STDMETHODIMP TimeStretch(FLOAT Rate) override;
    STDMETHODIMP AddNoise(FLOAT dbNoiseLevel, LONG NoiseType) override;
    STDMETHODIMP Trim(FLOAT dbTrimLevel, FLOAT FadeTime,
                      interfaces::TrimConstants TrimParam) override;
    STDMETHODIMP DeleteSilence(FLOAT dbThreshold, FLOAT AttackTime, FLOAT ReleaseTime) override;
    STDMETHODIMP InsertSilence(LONG Millisec) override;
    STDMETHODIMP MixStereoChannels(FLOAT LLAmp, FLOAT LRAmp, FLOAT RLAmp, FLOAT RRAmp) override;
    STDMETHODIMP Silence() override;
    STDMETHODIMP Reverse() override;
    STDMETHODIMP Invert() override;
    STDMETHODIMP Amplify(FLOAT Amp) override;
    STDMETHODIMP Fade(FLOAT AmpLeft, FLOAT AmpRight) override;
    STDMETHODIMP Normalize(FLOAT Normalization, VARIANT_BOOL DCBiasAdjust) override;
    STDMETHODIMP Vibrato(FLOAT SweepDepth, FLOAT SweepFrequency, FLOAT SweepPhase) override;
    STDMETHODIMP Envelope(SAFEARRAY** EnvelopeArray) override;
    STDMETHODIMP Compressor(FLOAT dbThreshold, FLOAT CompressionRate, FLOAT RMSTime) override;
    STDMETHODIMP Expander(FLOAT dbThreshold, FLOAT ExpansionRate, FLOAT RMSTime) override;
    STDMETHODIMP Delay(FLOAT DelayTime, FLOAT MixDepth, FLOAT FeedBackGain) override;
    STDMETHODIMP Flanger(FLOAT DelayRate, FLOAT MixDepth, FLOAT FeedBackGain, FLOAT SweepDepth,
                         FLOAT SweepRate, FLOAT SweepPhase) override;
    STDMETHODIMP Chorus(FLOAT DelayRate, FLOAT MixDepth, FLOAT FeedBackGain, FLOAT SweepDepth,
                        FLOAT SweepRate, FLOAT SweepPhase) override;
    STDMETHODIMP Phaser(FLOAT DelayTime, FLOAT MixDepth, FLOAT FeedBackGain) override;
    STDMETHODIMP Reverb(FLOAT DelayTime, FLOAT MixDepth, FLOAT FeedBackGain, FLOAT ReverbrationGain,
                        FLOAT ReverbrationFrequency, LONG nTapDelay) override;
    STDMETHODIMP LowPassFilter(FLOAT Frequency, FLOAT Steepness) override;
    STDMETHODIMP HighPassFilter(FLOAT Frequency, FLOAT Steepness) override;
    STDMETHODIMP BandPassFilter(FLOAT Frequency, FLOAT Steepness) override;
    STDMETHODIMP NotchFilter(FLOAT Frequency, FLOAT Steepness) override;
    STDMETHODIMP PeakEQFilter(FLOAT dbGain, FLOAT Frequency, FLOAT Steepness) override;
    STDMETHODIMP Equalizer(SAFEARRAY** dbGainArray, SAFEARRAY** FreqArray) override;
    STDMETHODIMP LowShelfFilter(FLOAT dbGain, FLOAT Frequency, FLOAT Steepness) override;
    STDMETHODIMP HighShelfFilter(FLOAT dbGain, FLOAT Frequency, FLOAT Steepness) override;
    STDMETHODIMP FFTFilter(SAFEARRAY** FFTArray) override;
    STDMETHODIMP FIRFilter(SAFEARRAY** FreqArray, SAFEARRAY** dbGainArray, SAFEARRAY** WeightArray,
                           LONG Quality) override;

    STDMETHODIMP get_SmoothEnabled(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_SmoothEnabled(VARIANT_BOOL Value) override;
    STDMETHODIMP get_SmoothTime(LONG* Value) override;
    STDMETHODIMP put_SmoothTime(LONG Value) override;

private:
    template <class Operation, class... Values>
    HRESULT Run(const Operation& operation, Values... values) {
        return parts_.Do([&](Parts& parts) { parts.Pipeline.Run(operation, values...); });
    }

    Attachment<Parts> parts_;
};

}  // namespace mavrin2::objects
