#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// What happens to sound while it is recorded. Settings take effect at once, also while a recording
// runs. Every member succeeds; the recorder limits what is out of range. Levels are those of
// samples, 0 … 32767, times milliseconds.
struct IMavrin2Recorder : public IDispatch {
    static constexpr IID Id = IID_IMavrin2Recorder;

    // Recording by sound: stored is what follows from where the level was above the attack level
    // for the attack time, until it was below the release level for the release time.
    virtual HRESULT STDMETHODCALLTYPE get_AccuAttackTime(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AccuAttackTime(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AccuAttackLevel(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AccuAttackLevel(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AccuReleaseTime(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AccuReleaseTime(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AccuReleaseLevel(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AccuReleaseLevel(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AccuEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AccuEnabled(VARIANT_BOOL Value) = 0;
    // What is recorded passes the notch filter, the high-pass and the low-pass; all are off at
    // first. Frequencies in hertz; a filter is off where its frequency is outside 1 … 0.49 × rate.
    virtual HRESULT STDMETHODCALLTYPE get_NotchFilterEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_NotchFilterEnabled(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HighPassFilterEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_HighPassFilterEnabled(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LowPassFilterEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LowPassFilterEnabled(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_HighPassFilterFrequency(FLOAT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_HighPassFilterFrequency(FLOAT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LowPassFilterFrequency(FLOAT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_LowPassFilterFrequency(FLOAT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_NotchFilterFrequency(FLOAT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_NotchFilterFrequency(FLOAT Value) = 0;
    // The automatic gain control, which keeps peaks between the two levels.
    virtual HRESULT STDMETHODCALLTYPE get_AGCLowLevel(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AGCLowLevel(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AGCHighLevel(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AGCHighLevel(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AGCAttackTime(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AGCAttackTime(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AGCEnabled(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AGCEnabled(VARIANT_BOOL Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Recorder>();
}  // namespace mavrin2::automation
