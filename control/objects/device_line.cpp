#include "control/objects/device_line.h"

namespace mavrin2::objects {

using Output = contracts::IVelto2;
using Input = contracts::IRimbal2;

STDMETHODIMP CMavrin2DeviceLine::get_Count(SHORT* Value) {
    return route_.Pass(&Output::get_LineCount, &Input::get_LineCount, Value);
}

STDMETHODIMP CMavrin2DeviceLine::get_Num(SHORT* Value) {
    return route_.Pass(&Output::get_LineNum, &Input::get_LineNum, Value);
}

STDMETHODIMP CMavrin2DeviceLine::put_Num(SHORT Value) {
    return route_.Pass(&Output::put_LineNum, &Input::put_LineNum, Value);
}

STDMETHODIMP CMavrin2DeviceLine::get_Name(BSTR* Value) {
    return route_.Pass(&Output::get_LineName, &Input::get_LineName, Value);
}

STDMETHODIMP CMavrin2DeviceLine::get_AdvancedName(SHORT index, BSTR* Value) {
    return route_.Pass(&Output::get_LineControlName, &Input::get_LineControlName, index, Value);
}

STDMETHODIMP CMavrin2DeviceLine::get_AdvancedCount(SHORT* Value) {
    return route_.Pass(&Output::get_LineControlCount, &Input::get_LineControlCount, Value);
}

STDMETHODIMP CMavrin2DeviceLine::get_VolumeBalance(SHORT* Value) {
    return route_.Pass(&Output::get_LineBalance, &Input::get_LineBalance, Value);
}

STDMETHODIMP CMavrin2DeviceLine::put_VolumeBalance(SHORT Value) {
    return route_.Pass(&Output::put_LineBalance, &Input::put_LineBalance, Value);
}

STDMETHODIMP CMavrin2DeviceLine::get_Volume(LONG* Value) {
    return route_.Pass(&Output::get_LineVolume, &Input::get_LineVolume, Value);
}

STDMETHODIMP CMavrin2DeviceLine::put_Volume(LONG Value) {
    return route_.Pass(&Output::put_LineVolume, &Input::put_LineVolume, Value);
}

STDMETHODIMP CMavrin2DeviceLine::get_AdvancedValue(SHORT index, VARIANT* Value) {
    return route_.Pass(&Output::get_LineControlValue, &Input::get_LineControlValue, index, Value);
}

STDMETHODIMP CMavrin2DeviceLine::put_AdvancedValue(SHORT index, VARIANT Value) {
    return route_.Pass(&Output::put_LineControlValue, &Input::put_LineControlValue, index, Value);
}

// The switch of an output line is its mute.
STDMETHODIMP CMavrin2DeviceLine::get_Select(VARIANT_BOOL* Value) {
    const HRESULT status = route_.Pass(&Output::get_LineSwitch, &Input::get_LineSwitch, Value);
    if (Value && route_.KindOfDevice() == DeviceRoute::Kind::Output) *Value = *Value == 0 ? 1 : 0;
    return status;
}

STDMETHODIMP CMavrin2DeviceLine::put_Select(VARIANT_BOOL Value) {
    if (route_.KindOfDevice() != DeviceRoute::Kind::Output)
        return route_.Pass(&Output::put_LineSwitch, &Input::put_LineSwitch, Value);
    const VARIANT_BOOL muted = Value == 0 ? 1 : 0;
    return route_.PassToOutput(&Output::put_LineSwitch, muted);
}

}  // namespace mavrin2::objects
