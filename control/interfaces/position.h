#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// Where things are in the open document, in sample frames. Every member succeeds: what is out of
// range is limited to the document, and with no document getters give 0 and setters do nothing.
struct IMavrin2Position : public IDispatch {
    static constexpr IID Id = IID_IMavrin2Position;

    // Rounded to the nearest; -1 when the result has no 32 bits. Work without a document.
    virtual HRESULT STDMETHODCALLTYPE SecToSamples(LONG Millisec, LONG* Samples) = 0;
    virtual HRESULT STDMETHODCALLTYPE SamplesToSec(LONG Samples, LONG* Millisec) = 0;
    // Selects the marker of that number, from 1, or the nearest there is. Nothing without markers.
    virtual HRESULT STDMETHODCALLTYPE GoToMarker(LONG Num) = 0;
    // The selection, or the current position when nothing is selected.
    virtual HRESULT STDMETHODCALLTYPE get_StartSelect(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_StartSelect(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_EndSelect(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_EndSelect(LONG Value) = 0;
    // The visible range.
    virtual HRESULT STDMETHODCALLTYPE get_StartView(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_StartView(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_EndView(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_EndView(LONG Value) = 0;
    // Kept as given.
    virtual HRESULT STDMETHODCALLTYPE get_Selected(VARIANT_BOOL* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Selected(VARIANT_BOOL Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_TotalSamples(LONG* Value) = 0;
    // Of the edit cursor, or of the sound card while it runs. Writing it stops what is running.
    virtual HRESULT STDMETHODCALLTYPE get_CurrentPosition(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_CurrentPosition(LONG Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Position>();
}  // namespace mavrin2::automation
