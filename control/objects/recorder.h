#pragma once

#include "automation/object.h"
#include "control/interfaces/recorder.h"
#include "control/objects/attachment.h"
#include "control/processing/recording_companion.h"

namespace mavrin2::objects {

// Shows hosts the settings of the capture companion, which holds them: whatever it answers, the
// member succeeds.
class CMavrin2Recorder final
    : public automation::AutomationObject<CMavrin2Recorder, interfaces::IMavrin2Recorder> {
public:
    explicit CMavrin2Recorder(IUnknown* outer) : AutomationObject(outer) {}
    ~CMavrin2Recorder() = default;

    void Attach(processing::RecordingCompanion& companion, IUnknown* control) {
        companion_.Attach(companion, control);
    }
    void Detach() { companion_.Detach(); }

    STDMETHODIMP get_AccuAttackTime(LONG* Value) override {
        return Pass(&Settings::get_AccuAttackTime, Value);
    }
    STDMETHODIMP put_AccuAttackTime(LONG Value) override {
        return Pass(&Settings::put_AccuAttackTime, Value);
    }
    STDMETHODIMP get_AccuAttackLevel(LONG* Value) override {
        return Pass(&Settings::get_AccuAttackLevel, Value);
    }
    STDMETHODIMP put_AccuAttackLevel(LONG Value) override {
        return Pass(&Settings::put_AccuAttackLevel, Value);
    }
    STDMETHODIMP get_AccuReleaseTime(LONG* Value) override {
        return Pass(&Settings::get_AccuReleaseTime, Value);
    }
    STDMETHODIMP put_AccuReleaseTime(LONG Value) override {
        return Pass(&Settings::put_AccuReleaseTime, Value);
    }
    STDMETHODIMP get_AccuReleaseLevel(LONG* Value) override {
        return Pass(&Settings::get_AccuReleaseLevel, Value);
    }
    STDMETHODIMP put_AccuReleaseLevel(LONG Value) override {
        return Pass(&Settings::put_AccuReleaseLevel, Value);
    }
    STDMETHODIMP get_AccuEnabled(VARIANT_BOOL* Value) override {
        return Pass(&Settings::get_AccuEnabled, Value);
    }
    STDMETHODIMP put_AccuEnabled(VARIANT_BOOL Value) override {
        return Pass(&Settings::put_AccuEnabled, Value);
    }
    STDMETHODIMP get_NotchFilterEnabled(VARIANT_BOOL* Value) override {
        return Pass(&Settings::get_NotchFilterEnabled, Value);
    }
    STDMETHODIMP put_NotchFilterEnabled(VARIANT_BOOL Value) override {
        return Pass(&Settings::put_NotchFilterEnabled, Value);
    }
    STDMETHODIMP get_HighPassFilterEnabled(VARIANT_BOOL* Value) override {
        return Pass(&Settings::get_HighPassFilterEnabled, Value);
    }
    STDMETHODIMP put_HighPassFilterEnabled(VARIANT_BOOL Value) override {
        return Pass(&Settings::put_HighPassFilterEnabled, Value);
    }
    STDMETHODIMP get_LowPassFilterEnabled(VARIANT_BOOL* Value) override {
        return Pass(&Settings::get_LowPassFilterEnabled, Value);
    }
    STDMETHODIMP put_LowPassFilterEnabled(VARIANT_BOOL Value) override {
        return Pass(&Settings::put_LowPassFilterEnabled, Value);
    }
    STDMETHODIMP get_HighPassFilterFrequency(FLOAT* Value) override {
        return Pass(&Settings::get_HighPassFilterFrequency, Value);
    }
    STDMETHODIMP put_HighPassFilterFrequency(FLOAT Value) override {
        return Pass(&Settings::put_HighPassFilterFrequency, Value);
    }
    STDMETHODIMP get_LowPassFilterFrequency(FLOAT* Value) override {
        return Pass(&Settings::get_LowPassFilterFrequency, Value);
    }
    STDMETHODIMP put_LowPassFilterFrequency(FLOAT Value) override {
        return Pass(&Settings::put_LowPassFilterFrequency, Value);
    }
    STDMETHODIMP get_NotchFilterFrequency(FLOAT* Value) override {
        return Pass(&Settings::get_NotchFilterFrequency, Value);
    }
    STDMETHODIMP put_NotchFilterFrequency(FLOAT Value) override {
        return Pass(&Settings::put_NotchFilterFrequency, Value);
    }
    STDMETHODIMP get_AGCLowLevel(LONG* Value) override {
        return Pass(&Settings::get_AGCLowLevel, Value);
    }
    STDMETHODIMP put_AGCLowLevel(LONG Value) override {
        return Pass(&Settings::put_AGCLowLevel, Value);
    }
    STDMETHODIMP get_AGCHighLevel(LONG* Value) override {
        return Pass(&Settings::get_AGCHighLevel, Value);
    }
    STDMETHODIMP put_AGCHighLevel(LONG Value) override {
        return Pass(&Settings::put_AGCHighLevel, Value);
    }
    STDMETHODIMP get_AGCAttackTime(LONG* Value) override {
        return Pass(&Settings::get_AGCAttackTime, Value);
    }
    STDMETHODIMP put_AGCAttackTime(LONG Value) override {
        return Pass(&Settings::put_AGCAttackTime, Value);
    }
    STDMETHODIMP get_AGCEnabled(VARIANT_BOOL* Value) override {
        return Pass(&Settings::get_AGCEnabled, Value);
    }
    STDMETHODIMP put_AGCEnabled(VARIANT_BOOL Value) override {
        return Pass(&Settings::put_AGCEnabled, Value);
    }

private:
    using Settings = contracts::IRimbal2;

    template <class Method, class Argument>
    HRESULT Pass(Method method, Argument argument) {
        return companion_.Do(
            [&](processing::RecordingCompanion& companion) { companion.Call(method, argument); });
    }

    Attachment<processing::RecordingCompanion> companion_;
};

}  // namespace mavrin2::objects
