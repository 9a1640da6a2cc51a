#include "control/objects/device.h"

namespace mavrin2::objects {

using Output = contracts::IVelto2;
using Input = contracts::IRimbal2;

void CMavrin2Device::InitDevice(DeviceRoute::Kind kind, const DeviceRoute::Companions& companions,
                                IUnknown* control) {
    route_.Attach(kind, companions, control);
    lines_->Route().Attach(kind, companions, control);
    companions.Playback.SetTimerInterval(buffering_.TimerInterval);
    companions.Recording.SetTimerInterval(buffering_.TimerInterval);
}

void CMavrin2Device::Detach() {
    route_.Detach();
    lines_->Route().Detach();
}

STDMETHODIMP CMavrin2Device::get_Count(SHORT* Value) {
    return route_.Pass(&Output::get_DeviceCount, &Input::get_DeviceCount, Value);
}

STDMETHODIMP CMavrin2Device::get_Num(SHORT* Value) {
    return route_.Pass(&Output::get_DeviceNum, &Input::get_DeviceNum, Value);
}

STDMETHODIMP CMavrin2Device::put_Num(SHORT Value) {
    return route_.Pass(&Output::put_DeviceNum, &Input::put_DeviceNum, Value);
}

STDMETHODIMP CMavrin2Device::get_Name(BSTR* Value) {
    return route_.Pass(&Output::get_DeviceName, &Input::get_DeviceName, Value);
}

STDMETHODIMP CMavrin2Device::get_Volume(LONG* Value) {
    return route_.PassToOutput(&Output::get_MasterVolume, Value);
}

STDMETHODIMP CMavrin2Device::put_Volume(LONG Value) {
    return route_.PassToOutput(&Output::put_MasterVolume, Value);
}

STDMETHODIMP CMavrin2Device::get_DeviceLines(interfaces::IMavrin2DeviceLine** Value) {
    if (!Value) return E_POINTER;
    *Value = lines_.As<interfaces::IMavrin2DeviceLine>().Detach();
    return S_OK;
}

STDMETHODIMP CMavrin2Device::get_BufferSize(LONG* Value) {
    if (!Value) return E_POINTER;
    *Value = buffering_.BufferSize;
    return S_OK;
}

STDMETHODIMP CMavrin2Device::put_BufferSize(LONG Value) {
    buffering_.BufferSize = static_cast<std::int32_t>(Value);
    return S_OK;
}

STDMETHODIMP CMavrin2Device::get_TimerInterval(SHORT* Value) {
    if (!Value) return E_POINTER;
    *Value = buffering_.TimerInterval;
    return S_OK;
}

STDMETHODIMP CMavrin2Device::put_TimerInterval(SHORT Value) {
    buffering_.TimerInterval = Value;
    return route_.Pass(&Output::put_TimerInterval, &Input::put_TimerInterval, Value);
}

STDMETHODIMP CMavrin2Device::get_BufferCount(SHORT* Value) {
    if (!Value) return E_POINTER;
    *Value = buffering_.BufferCount;
    return S_OK;
}

STDMETHODIMP CMavrin2Device::put_BufferCount(SHORT Value) {
    buffering_.BufferCount = Value;
    return S_OK;
}

}  // namespace mavrin2::objects
