#include "companions/kestrin/transform_companion.h"

#include <vector>

#include "automation/guarded.h"
#include "companions/contracts/companion_events.h"
#include "companions/kestrin/array_block.h"
#include "companions/kestrin/event_progress.h"

namespace mavrin2::kestrin {

TransformCompanion::TransformCompanion(IUnknown* outer, std::unique_ptr<const Libraries> libraries)
    : AutomationObject(outer),
      libraries_(std::move(libraries)),
      transform_(*libraries_),
      classInformation_(Identity(), &contracts::KestrinLibrary, contracts::CLSID_KovKestrin),
      connectionPoints_(Identity(), {&contracts::DIID_IKestrin2Events}),
      limitedSamples_(Identity(), [this] { return limited_; }) {}

void* TransformCompanion::FindInterface(REFIID iid) {
    if (IsEqualGUID(iid, IID_IConnectionPointContainer))
        return static_cast<IConnectionPointContainer*>(&connectionPoints_);
    if (IsEqualGUID(iid, IID_IProvideClassInfo) || IsEqualGUID(iid, IID_IProvideClassInfo2))
        return static_cast<IProvideClassInfo2*>(&classInformation_);
    if (IsEqualGUID(iid, automation::ILimitedSamples::Id))
        return static_cast<automation::ILimitedSamples*>(&limitedSamples_);
    return nullptr;
}

HRESULT TransformCompanion::Run(OperationId id, SAFEARRAY** samples,
                                std::initializer_list<float> values,
                                std::initializer_list<SAFEARRAY**> arrays) {
    if (running_) return E_UNEXPECTED;  // called from inside an event
    const automation::ComPtr<IUnknown> held(Identity());
    running_ = true;
    // Aborted between its channels, a sound has no second one.
    if (aborted_.exchange(false)) transform_.BeginPair();
    const HRESULT status = automation::Guarded([&]() -> HRESULT {
        ArrayBlock block(samples);
        if (!block.IsUsable()) return E_INVALIDARG;
        std::vector<std::unique_ptr<automation::ArrayView<float>>> views;
        std::vector<std::span<const float>> numbers;
        for (SAFEARRAY** array : arrays) {
            views.push_back(
                std::make_unique<automation::ArrayView<float>>(array ? *array : nullptr));
            numbers.push_back(views.back()->Elements());
        }
        EventProgress progress(connectionPoints_.At(0), aborted_, limited_);
        try {
            transform_.Run(id, block, values, numbers, progress);
            progress.Finish();
            return S_OK;
        } catch (const Aborted&) {
            return E_ABORT;
        } catch (const LibraryMissing&) {
            return E_FAIL;
        }
    });
    running_ = false;
    return status;
}

STDMETHODIMP TransformCompanion::MixStereoChannels(SAFEARRAY** samples, FLOAT leftToLeft,
                                                   FLOAT leftToRight, FLOAT rightToLeft,
                                                   FLOAT rightToRight) {
    return Run(OperationId::MixStereoChannels, samples,
               {leftToLeft, leftToRight, rightToLeft, rightToRight});
}

STDMETHODIMP TransformCompanion::Resample(SAFEARRAY** samples, FLOAT rate) {
    return Run(OperationId::Resample, samples, {rate});
}

STDMETHODIMP TransformCompanion::PitchShift(SAFEARRAY** samples, FLOAT rate) {
    return Run(OperationId::PitchShift, samples, {rate});
}

STDMETHODIMP TransformCompanion::TimeStretch(SAFEARRAY** samples, FLOAT rate) {
    return Run(OperationId::TimeStretch, samples, {rate});
}

STDMETHODIMP TransformCompanion::AddNoise(SAFEARRAY** samples, FLOAT dbNoiseLevel, LONG noiseType) {
    return Run(OperationId::AddNoise, samples, {dbNoiseLevel, static_cast<float>(noiseType)});
}

STDMETHODIMP TransformCompanion::TrimStart(SAFEARRAY** samples, FLOAT dbTrimLevel, FLOAT fadeTime) {
    return Run(OperationId::TrimStart, samples, {dbTrimLevel, fadeTime});
}

STDMETHODIMP TransformCompanion::TrimEnd(SAFEARRAY** samples, FLOAT dbTrimLevel, FLOAT fadeTime) {
    return Run(OperationId::TrimEnd, samples, {dbTrimLevel, fadeTime});
}

STDMETHODIMP TransformCompanion::DeleteSilence(SAFEARRAY** samples, FLOAT dbThreshold,
                                               FLOAT attackTime, FLOAT releaseTime) {
    return Run(OperationId::DeleteSilence, samples, {dbThreshold, attackTime, releaseTime});
}

STDMETHODIMP TransformCompanion::Silence(SAFEARRAY** samples) {
    return Run(OperationId::Silence, samples, {});
}

STDMETHODIMP TransformCompanion::Reverse(SAFEARRAY** samples) {
    return Run(OperationId::Reverse, samples, {});
}

STDMETHODIMP TransformCompanion::Invert(SAFEARRAY** samples) {
    return Run(OperationId::Invert, samples, {});
}

STDMETHODIMP TransformCompanion::Amplify(SAFEARRAY** samples, FLOAT amp) {
    return Run(OperationId::Amplify, samples, {amp});
}

STDMETHODIMP TransformCompanion::Fade(SAFEARRAY** samples, FLOAT ampLeft, FLOAT ampRight) {
    return Run(OperationId::Fade, samples, {ampLeft, ampRight});
}

STDMETHODIMP TransformCompanion::Normalize(SAFEARRAY** samples, FLOAT normalization,
                                           VARIANT_BOOL adjustBias) {
    return Run(OperationId::Normalize, samples, {normalization, static_cast<float>(adjustBias)});
}

STDMETHODIMP TransformCompanion::Vibrato(SAFEARRAY** samples, FLOAT sweepDepth,
                                         FLOAT sweepFrequency, FLOAT sweepPhase) {
    return Run(OperationId::Vibrato, samples, {sweepDepth, sweepFrequency, sweepPhase});
}

STDMETHODIMP TransformCompanion::Envelope(SAFEARRAY** samples, SAFEARRAY** envelopeArray) {
    return Run(OperationId::Envelope, samples, {}, {envelopeArray});
}

STDMETHODIMP TransformCompanion::Compressor(SAFEARRAY** samples, FLOAT dbThreshold,
                                            FLOAT compressionRate, FLOAT rmsTime) {
    return Run(OperationId::Compressor, samples, {dbThreshold, compressionRate, rmsTime});
}

STDMETHODIMP TransformCompanion::Expander(SAFEARRAY** samples, FLOAT dbThreshold,
                                          FLOAT expansionRate, FLOAT rmsTime) {
    return Run(OperationId::Expander, samples, {dbThreshold, expansionRate, rmsTime});
}

STDMETHODIMP TransformCompanion::Delay(SAFEARRAY** samples, FLOAT delayTime, FLOAT mixDepth,
                                       FLOAT feedBackGain) {
    return Run(OperationId::Delay, samples, {delayTime, mixDepth, feedBackGain});
}

STDMETHODIMP TransformCompanion::Flanger(SAFEARRAY** samples, FLOAT delayRate, FLOAT mixDepth,
                                         FLOAT feedBackGain, FLOAT sweepDepth, FLOAT sweepRate,
                                         FLOAT sweepPhase) {
    return Run(OperationId::Flanger, samples,
               {delayRate, mixDepth, feedBackGain, sweepDepth, sweepRate, sweepPhase});
}

STDMETHODIMP TransformCompanion::Chorus(SAFEARRAY** samples, FLOAT delayRate, FLOAT mixDepth,
                                        FLOAT feedBackGain, FLOAT sweepDepth, FLOAT sweepRate,
                                        FLOAT sweepPhase) {
    return Run(OperationId::Chorus, samples,
               {delayRate, mixDepth, feedBackGain, sweepDepth, sweepRate, sweepPhase});
}

STDMETHODIMP TransformCompanion::Phaser(SAFEARRAY** samples, FLOAT delayTime, FLOAT mixDepth,
                                        FLOAT feedBackGain) {
    return Run(OperationId::Phaser, samples, {delayTime, mixDepth, feedBackGain});
}

STDMETHODIMP TransformCompanion::Reverb(SAFEARRAY** samples, FLOAT delayTime, FLOAT mixDepth,
                                        FLOAT feedBackGain, FLOAT reverbrationGain,
                                        FLOAT reverbrationFrequency, LONG nTapDelay) {
    return Run(OperationId::Reverb, samples,
               {delayTime, mixDepth, feedBackGain, reverbrationGain, reverbrationFrequency,
                static_cast<float>(nTapDelay)});
}

STDMETHODIMP TransformCompanion::LowPassFilter(SAFEARRAY** samples, FLOAT frequency,
                                               FLOAT steepness) {
    return Run(OperationId::LowPassFilter, samples, {frequency, steepness});
}

STDMETHODIMP TransformCompanion::HighPassFilter(SAFEARRAY** samples, FLOAT frequency,
                                                FLOAT steepness) {
    return Run(OperationId::HighPassFilter, samples, {frequency, steepness});
}

STDMETHODIMP TransformCompanion::BandPassFilter(SAFEARRAY** samples, FLOAT frequency,
                                                FLOAT steepness) {
    return Run(OperationId::BandPassFilter, samples, {frequency, steepness});
}

STDMETHODIMP TransformCompanion::NotchFilter(SAFEARRAY** samples, FLOAT frequency,
                                             FLOAT steepness) {
    return Run(OperationId::NotchFilter, samples, {frequency, steepness});
}

STDMETHODIMP TransformCompanion::PeakEQFilter(SAFEARRAY** samples, FLOAT dbGain, FLOAT frequency,
                                              FLOAT steepness) {
    return Run(OperationId::PeakEQFilter, samples, {dbGain, frequency, steepness});
}

STDMETHODIMP TransformCompanion::LowShelfFilter(SAFEARRAY** samples, FLOAT dbGain, FLOAT frequency,
                                                FLOAT steepness) {
    return Run(OperationId::LowShelfFilter, samples, {dbGain, frequency, steepness});
}

STDMETHODIMP TransformCompanion::HighShelfFilter(SAFEARRAY** samples, FLOAT dbGain, FLOAT frequency,
                                                 FLOAT steepness) {
    return Run(OperationId::HighShelfFilter, samples, {dbGain, frequency, steepness});
}

STDMETHODIMP TransformCompanion::Equalizer(SAFEARRAY** samples, SAFEARRAY** dbGainArray,
                                           SAFEARRAY** freqArray) {
    return Run(OperationId::Equalizer, samples, {}, {dbGainArray, freqArray});
}

STDMETHODIMP TransformCompanion::FFTFilter(SAFEARRAY** samples, SAFEARRAY** gains) {
    return Run(OperationId::FFTFilter, samples, {}, {gains});
}

STDMETHODIMP TransformCompanion::FIRFilter(SAFEARRAY** samples, SAFEARRAY** freqArray,
                                           SAFEARRAY** dbGainArray, SAFEARRAY** weightArray,
                                           LONG quality) {
    return Run(OperationId::FIRFilter, samples, {static_cast<float>(quality)},
               {freqArray, dbGainArray, weightArray});
}

STDMETHODIMP TransformCompanion::Abort() {
    aborted_ = true;
    return S_OK;
}

STDMETHODIMP TransformCompanion::put_SetSmoothingFirst(SHORT value) {
    transform_.SetSmoothStart(value != 0);
    return S_OK;
}

STDMETHODIMP TransformCompanion::put_SetSmoothingSecond(SHORT value) {
    transform_.SetSmoothEnd(value != 0);
    return S_OK;
}

STDMETHODIMP TransformCompanion::put_SetSmoothTime(LONG value) {
    transform_.SetSmoothTime(value);
    return S_OK;
}

STDMETHODIMP TransformCompanion::put_SetSampleRate(LONG value) {
    transform_.SetRate(value);
    return S_OK;
}

STDMETHODIMP TransformCompanion::put_SetChannelCount(LONG value) {
    transform_.SetChannels(value);
    return S_OK;
}

}  // namespace mavrin2::kestrin
