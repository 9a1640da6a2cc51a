#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// The markers of the open document: cues, and ranges when they have a length. They are numbered
// from 1 in the order of insertion. All members but Insert, Count and Num speak of the current
// marker. Every member succeeds: without a document or a current marker getters give 0 or an empty
// text, and nothing else happens. Positions and lengths are sample frames of any value; texts that
// are read become the caller's.
struct IMavrin2Markers : public IDispatch {
    static constexpr IID Id = IID_IMavrin2Markers;

    // Appends a marker, which becomes current only when it is the first.
    virtual HRESULT STDMETHODCALLTYPE Insert(LONG Position, LONG Length, BSTR Label, BSTR Note) = 0;
    // The next marker becomes current, or the last one.
    virtual HRESULT STDMETHODCALLTYPE Delete() = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* Value) = 0;
    // The number of the current marker, 0 for none; limited to the markers there are.
    virtual HRESULT STDMETHODCALLTYPE get_Num(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Num(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Length(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Length(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Position(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Position(LONG Value) = 0;
    // Shown as it was when markers were last drawn anew.
    virtual HRESULT STDMETHODCALLTYPE get_Label(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Label(BSTR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Note(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Note(BSTR Value) = 0;
    // As a file had it; not saved.
    virtual HRESULT STDMETHODCALLTYPE get_Text(BSTR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Text(BSTR Value) = 0;
    // 0x00BBGGRR.
    virtual HRESULT STDMETHODCALLTYPE get_Color(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Color(OLE_COLOR Value) = 0;
};

// What the same interface offers to hosts that call through the virtual table: these members have
// no names and no dispatch identifiers.
struct IMavrin2MarkerDetails : public IMavrin2Markers {
    // 10 × 10 pixels; black until it is set. The object that is read becomes the caller's; any
    // picture that is put is scaled.
    virtual HRESULT STDMETHODCALLTYPE get_Picture(IPictureDisp** Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Picture(IPictureDisp* Value) = 0;
    // Does nothing.
    virtual HRESULT STDMETHODCALLTYPE ReservedOperation(LONG Value) = 0;
    // Sample frames from the position.
    virtual HRESULT STDMETHODCALLTYPE get_CutPoint(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_CutPoint(LONG Value) = 0;
    // All markers, by position. Num stays and may then name another one.
    virtual HRESULT STDMETHODCALLTYPE Sort() = 0;
    // Kept for the host; negative values become 0.
    virtual HRESULT STDMETHODCALLTYPE get_Play(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Play(LONG Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Markers>();
template <>
inline const InterfaceDescription& DescriptionOf<interfaces::IMavrin2MarkerDetails>() {
    return DescriptionOf<interfaces::IMavrin2Markers>();
}
}  // namespace mavrin2::automation
