#pragma once

#include "automation/object.h"
#include "control/interfaces/device.h"
#include "control/objects/device_line.h"
#include "control/objects/device_route.h"
#include "control/processing/transport_settings.h"

namespace mavrin2::objects {

// Shows hosts the devices of one kind, which its companion holds, and keeps how sound is buffered.
class CMavrin2Device final
    : public automation::AutomationObject<CMavrin2Device, interfaces::IMavrin2Device> {
public:
    explicit CMavrin2Device(IUnknown* outer)
        : AutomationObject(outer), lines_(CMavrin2DeviceLine::Make()) {}
    ~CMavrin2Device() = default;

    // Passes the timer interval on to both companions.
    void InitDevice(DeviceRoute::Kind kind, const DeviceRoute::Companions& companions,
                    IUnknown* control);
    void Detach();
    const processing::DeviceBuffering& Buffering() const { return buffering_; }

    STDMETHODIMP get_Count(SHORT* Value) override;
    STDMETHODIMP get_Num(SHORT* Value) override;
    STDMETHODIMP put_Num(SHORT Value) override;
    STDMETHODIMP get_Name(BSTR* Value) override;
    STDMETHODIMP get_Volume(LONG* Value) override;
    STDMETHODIMP put_Volume(LONG Value) override;
    STDMETHODIMP get_DeviceLines(interfaces::IMavrin2DeviceLine** Value) override;
    STDMETHODIMP get_BufferSize(LONG* Value) override;
    STDMETHODIMP put_BufferSize(LONG Value) override;
    STDMETHODIMP get_TimerInterval(SHORT* Value) override;
    STDMETHODIMP put_TimerInterval(SHORT Value) override;
    STDMETHODIMP get_BufferCount(SHORT* Value) override;
    STDMETHODIMP put_BufferCount(SHORT Value) override;

private:
    const automation::ComPtr<CMavrin2DeviceLine> lines_;
    DeviceRoute route_;
    processing::DeviceBuffering buffering_;
};

}  // namespace mavrin2::objects
