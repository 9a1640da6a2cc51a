#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// The colours of the picture, 0x00BBGGRR, and the ends of the spectral picture's colour ramp. Every
// member succeeds; a value is kept as given, and the picture is drawn anew.
struct IMavrin2Colors : public IDispatch {
    static constexpr IID Id = IID_IMavrin2Colors;

    virtual HRESULT STDMETHODCALLTYPE get_Font(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Font(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SelectDigitalWaveform(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SelectDigitalWaveform(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SelectCenterLine(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SelectCenterLine(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SelectBackground(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SelectBackground(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SelectAnalogWaveform(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SelectAnalogWaveform(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Scales(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Scales(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_PlayCursor(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_PlayCursor(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Grid(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Grid(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_DigitalWaveform(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_DigitalWaveform(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Cursor(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Cursor(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_CenterLine(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_CenterLine(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Boundary(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Boundary(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Background(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Background(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_AnalogWaveform(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AnalogWaveform(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_CueMarker(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_CueMarker(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_RangeMarker(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_RangeMarker(OLE_COLOR Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_RangeMarkerBackground(OLE_COLOR* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_RangeMarkerBackground(OLE_COLOR Value) = 0;
    // Hues on a circle of 140; for loud sound they count backwards from 100 + the low end.
    virtual HRESULT STDMETHODCALLTYPE get_SpectralLow(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SpectralLow(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SpectralHigh(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SpectralHigh(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SpectralSelectLow(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SpectralSelectLow(LONG Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_SpectralSelectHigh(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_SpectralSelectHigh(LONG Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Colors>();
}  // namespace mavrin2::automation
