#pragma once

#include "automation/object.h"
#include "control/interfaces/device_line.h"
#include "control/objects/device_route.h"

namespace mavrin2::objects {

// Shows hosts the mixer lines of a device, which its companion holds.
class CMavrin2DeviceLine final
    : public automation::AutomationObject<CMavrin2DeviceLine, interfaces::IMavrin2DeviceLine> {
public:
    explicit CMavrin2DeviceLine(IUnknown* outer) : AutomationObject(outer) {}
    ~CMavrin2DeviceLine() = default;

    DeviceRoute& Route() { return route_; }

    STDMETHODIMP get_Count(SHORT* Value) override;
    STDMETHODIMP get_Num(SHORT* Value) override;
    STDMETHODIMP put_Num(SHORT Value) override;
    STDMETHODIMP get_Name(BSTR* Value) override;
    STDMETHODIMP get_AdvancedName(SHORT index, BSTR* Value) override;
    STDMETHODIMP get_AdvancedCount(SHORT* Value) override;
    STDMETHODIMP get_VolumeBalance(SHORT* Value) override;
    STDMETHODIMP put_VolumeBalance(SHORT Value) override;
    STDMETHODIMP get_Volume(LONG* Value) override;
    STDMETHODIMP put_Volume(LONG Value) override;
    STDMETHODIMP get_AdvancedValue(SHORT index, VARIANT* Value) override;
    STDMETHODIMP put_AdvancedValue(SHORT index, VARIANT Value) override;
    STDMETHODIMP get_Select(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_Select(VARIANT_BOOL Value) override;

private:
    DeviceRoute route_;
};

}  // namespace mavrin2::objects
