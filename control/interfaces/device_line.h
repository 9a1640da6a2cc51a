#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// The mixer lines of a sound device, which are its ports (speakers, headphones, line in …). Every
// member succeeds; what the companion for sound devices answers is passed on as it is. Volumes are
// percent, 0 … 100.
struct IMavrin2DeviceLine : public IDispatch {
    static constexpr IID Id = IID_IMavrin2DeviceLine;

    virtual HRESULT STDMETHODCALLTYPE get_Count(SHORT* Value) = 0;
    // The selected line, from 1.
    virtual HRESULT STDMETHODCALLTYPE get_Num(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Num(SHORT Value) = 0;
    // Of the selected line, as all that follow. Owned by the caller.
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* Value) = 0;
    // Of a further control, from 1. Owned by the caller.
    virtual HRESULT STDMETHODCALLTYPE get_AdvancedName(SHORT index, BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AdvancedCount(SHORT* Value) = 0;
    // −100 (left only) … 100 (right only).
    virtual HRESULT STDMETHODCALLTYPE get_VolumeBalance(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_VolumeBalance(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Volume(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Volume(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AdvancedValue(SHORT index, VARIANT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AdvancedValue(SHORT index, VARIANT Value) = 0;
    // Whether an output line is heard, or an input line is recorded. 1 for an output line that is.
    virtual HRESULT STDMETHODCALLTYPE get_Select(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Select(VARIANT_BOOL Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2DeviceLine>();
}  // namespace mavrin2::automation
