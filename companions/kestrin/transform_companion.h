#pragma once

#include <atomic>
#include <initializer_list>

#include "automation/connection_points.h"
#include "automation/limited_samples.h"
#include "automation/object.h"
#include "automation/type_information.h"
#include "companions/contracts/kestrin.h"
#include "companions/kestrin/operations/transform.h"

namespace mavrin2::kestrin {

// The class KovKestrin: one operation at a time, on the thread that calls.
class TransformCompanion final
    : public automation::AutomationObject<TransformCompanion, contracts::IKestrin2> {
public:
    TransformCompanion(IUnknown* outer, std::unique_ptr<const Libraries> libraries);

    STDMETHODIMP MixStereoChannels(SAFEARRAY** samples, FLOAT leftToLeft, FLOAT leftToRight,
                                   FLOAT rightToLeft, FLOAT rightToRight) override;
    STDMETHODIMP Resample(SAFEARRAY** samples, FLOAT rate) override;
    STDMETHODIMP PitchShift(SAFEARRAY** samples, FLOAT rate) override;
    STDMETHODIMP TimeStretch(SAFEARRAY** samples, FLOAT rate) override;
    STDMETHODIMP AddNoise(SAFEARRAY** samples, FLOAT dbNoiseLevel, LONG noiseType) override;
    STDMETHODIMP TrimStart(SAFEARRAY** samples, FLOAT dbTrimLevel, FLOAT fadeTime) override;
    STDMETHODIMP TrimEnd(SAFEARRAY** samples, FLOAT dbTrimLevel, FLOAT fadeTime) override;
    STDMETHODIMP DeleteSilence(SAFEARRAY** samples, FLOAT dbThreshold, FLOAT attackTime,
                               FLOAT releaseTime) override;
    STDMETHODIMP Silence(SAFEARRAY** samples) override;
    STDMETHODIMP Reverse(SAFEARRAY** samples) override;
    STDMETHODIMP Invert(SAFEARRAY** samples) override;
    STDMETHODIMP Amplify(SAFEARRAY** samples, FLOAT amp) override;
    STDMETHODIMP Fade(SAFEARRAY** samples, FLOAT ampLeft, FLOAT ampRight) override;
    STDMETHODIMP Normalize(SAFEARRAY** samples, FLOAT normalization,
                           VARIANT_BOOL adjustBias) override;
    STDMETHODIMP Vibrato(SAFEARRAY** samples, FLOAT sweepDepth, FLOAT sweepFrequency,
                         FLOAT sweepPhase) override;
    STDMETHODIMP Envelope(SAFEARRAY** samples, SAFEARRAY** envelopeArray) override;
    STDMETHODIMP Compressor(SAFEARRAY** samples, FLOAT dbThreshold, FLOAT compressionRate,
                            FLOAT rmsTime) override;
    STDMETHODIMP Expander(SAFEARRAY** samples, FLOAT dbThreshold, FLOAT expansionRate,
                          FLOAT rmsTime) override;
    STDMETHODIMP Delay(SAFEARRAY** samples, FLOAT delayTime, FLOAT mixDepth,
                       FLOAT feedBackGain) override;
    STDMETHODIMP Flanger(SAFEARRAY** samples, FLOAT delayRate, FLOAT mixDepth, FLOAT feedBackGain,
                         FLOAT sweepDepth, FLOAT sweepRate, FLOAT sweepPhase) override;
    STDMETHODIMP Chorus(SAFEARRAY** samples, FLOAT delayRate, FLOAT mixDepth, FLOAT feedBackGain,
                        FLOAT sweepDepth, FLOAT sweepRate, FLOAT sweepPhase) override;
    STDMETHODIMP Phaser(SAFEARRAY** samples, FLOAT delayTime, FLOAT mixDepth,
                        FLOAT feedBackGain) override;
    STDMETHODIMP Reverb(SAFEARRAY** samples, FLOAT delayTime, FLOAT mixDepth, FLOAT feedBackGain,
                        FLOAT reverbrationGain, FLOAT reverbrationFrequency,
                        LONG nTapDelay) override;
    STDMETHODIMP LowPassFilter(SAFEARRAY** samples, FLOAT frequency, FLOAT steepness) override;
    STDMETHODIMP HighPassFilter(SAFEARRAY** samples, FLOAT frequency, FLOAT steepness) override;
    STDMETHODIMP BandPassFilter(SAFEARRAY** samples, FLOAT frequency, FLOAT steepness) override;
    STDMETHODIMP NotchFilter(SAFEARRAY** samples, FLOAT frequency, FLOAT steepness) override;
    STDMETHODIMP PeakEQFilter(SAFEARRAY** samples, FLOAT dbGain, FLOAT frequency,
                              FLOAT steepness) override;
    STDMETHODIMP LowShelfFilter(SAFEARRAY** samples, FLOAT dbGain, FLOAT frequency,
                                FLOAT steepness) override;
    STDMETHODIMP HighShelfFilter(SAFEARRAY** samples, FLOAT dbGain, FLOAT frequency,
                                 FLOAT steepness) override;
    STDMETHODIMP Equalizer(SAFEARRAY** samples, SAFEARRAY** dbGainArray,
                           SAFEARRAY** freqArray) override;
    STDMETHODIMP FFTFilter(SAFEARRAY** samples, SAFEARRAY** gains) override;
    STDMETHODIMP FIRFilter(SAFEARRAY** samples, SAFEARRAY** freqArray, SAFEARRAY** dbGainArray,
                           SAFEARRAY** weightArray, LONG quality) override;
    STDMETHODIMP Abort() override;
    STDMETHODIMP put_SetSmoothingFirst(SHORT value) override;
    STDMETHODIMP put_SetSmoothingSecond(SHORT value) override;
    STDMETHODIMP put_SetSmoothTime(LONG value) override;
    STDMETHODIMP put_SetSampleRate(LONG value) override;
    STDMETHODIMP put_SetChannelCount(LONG value) override;

    void* FindInterface(REFIID iid);

private:
    HRESULT Run(OperationId id, SAFEARRAY** samples, std::initializer_list<float> values,
                std::initializer_list<SAFEARRAY**> arrays = {});

    std::unique_ptr<const Libraries> libraries_;
    Transform transform_;
    automation::ClassInformation classInformation_;
    automation::ConnectionPoints connectionPoints_;
    std::atomic<bool> aborted_ = false;
    bool running_ = false;
    std::int64_t limited_ = 0;
    automation::LimitedSamplesPart limitedSamples_;
};

}  // namespace mavrin2::kestrin
