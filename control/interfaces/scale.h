#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// One of the two scales. Every member succeeds; the picture is laid out and drawn anew after each
// change.
struct IMavrin2Scale : public IDispatch {
    static constexpr IID Id = IID_IMavrin2Scale;

    // An automation font (IFontDisp). The same object until another is put; null is ignored.
    virtual HRESULT STDMETHODCALLTYPE get_Font(IDispatch** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Font(IDispatch* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE putref_Font(IDispatch* Value) = 0;
    // Of time: 1 sample frames, 2 hours, minutes and seconds. Of levels: 1 sample values, 2 percent
    // of full scale, 3 decibels. Values out of range are limited.
    virtual HRESULT STDMETHODCALLTYPE get_Type(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Type(SHORT Value) = 0;
    // 0 or what was written.
    virtual HRESULT STDMETHODCALLTYPE get_Visible(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Visible(SHORT Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Grid(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Grid(SHORT Value) = 0;
    // Side of the waveform where the level scale is: 1 right, 2 left.
    virtual HRESULT STDMETHODCALLTYPE get_Orientation(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Orientation(SHORT Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Scale>();
}  // namespace mavrin2::automation
