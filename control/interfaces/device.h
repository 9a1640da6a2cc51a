#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/device_line.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// The sound devices for playback or for recording, and how sound goes through the selected one.
// Every member succeeds. What the companion for sound devices answers is passed on as it is; one
// that was made by itself, without a control, only keeps the buffering.
struct IMavrin2Device : public IDispatch {
    static constexpr IID Id = IID_IMavrin2Device;

    virtual HRESULT STDMETHODCALLTYPE get_Count(SHORT* Value) = 0;
    // The selected device, from 1: the default device of the system.
    virtual HRESULT STDMETHODCALLTYPE get_Num(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Num(SHORT Value) = 0;
    // Of the selected device. Owned by the caller.
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* Value) = 0;
    // Of an output device, 0 … 100; recording devices do nothing.
    virtual HRESULT STDMETHODCALLTYPE get_Volume(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Volume(LONG Value) = 0;
    // The mixer lines of the selected device: one object for as long as this one lives.
    virtual HRESULT STDMETHODCALLTYPE get_DeviceLines(IMavrin2DeviceLine** Value) = 0;
    // Milliseconds of a block, from the next Play or Record on. Below 1: nothing is played, and
    // recorded is in blocks of 500.
    virtual HRESULT STDMETHODCALLTYPE get_BufferSize(LONG* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_BufferSize(LONG Value) = 0;
    // Milliseconds between two events Meter.
    virtual HRESULT STDMETHODCALLTYPE get_TimerInterval(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_TimerInterval(SHORT Value) = 0;
    // Blocks that are queued when Play begins; recording does not use it.
    virtual HRESULT STDMETHODCALLTYPE get_BufferCount(SHORT* Value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_BufferCount(SHORT Value) = 0;
};

}  // namespace mavrin2::interfaces

namespace mavrin2::automation {
template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Device>();
}  // namespace mavrin2::automation
