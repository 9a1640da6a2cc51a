#pragma once

#include <algorithm>
#include <array>
#include <memory>

#include "automation/object.h"
#include "automation/safe_array.h"
#include "automation/text.h"
#include "automation/variant.h"
#include "companions/devices/mixer/device_mixer.h"
#include "companions/devices/streams/sample_history.h"

namespace mavrin2::devices {

// The value of a property.
template <class Target, class Value>
HRESULT Give(Target* target, Value value) {
    if (!target) return E_POINTER;
    *target = static_cast<Target>(value);
    return S_OK;
}

inline VARIANT_BOOL Switch(bool on) {
    return on ? 1 : 0;
}

// Samples for the caller, who owns the array.
inline HRESULT GiveSamples(const std::vector<std::int16_t>& samples, SAFEARRAY** target) {
    if (!target) return E_POINTER;
    automation::SafeArray<std::int16_t> array(samples.size());
    {
        const automation::ArrayView<std::int16_t> view(array.Get());
        std::copy(samples.begin(), samples.end(), view.Elements().begin());
    }
    *target = array.Detach();
    return S_OK;
}

inline Format LimitedFormat(LONG rate, LONG channels) {
    return {std::clamp<LONG>(rate, 100, 768'000), std::clamp<LONG>(channels, 1, 2)};
}

// The arguments of a position event.
inline std::array<VARIANT, 3> PositionArguments(std::int64_t frames, const Levels& levels) {
    const auto limited = static_cast<LONG>(std::min<std::int64_t>(frames, INT32_MAX));
    return {automation::Variant::Int32(limited), automation::Variant::Int32(levels.Left),
            automation::Variant::Int32(levels.Right)};
}

// What both device companions have: the devices and the mixer lines of their direction.
template <class Derived, class Primary, Direction Way>
class DeviceObject : public automation::AutomationObject<Derived, Primary> {
public:
    STDMETHODIMP get_DeviceCount(SHORT* count) final {
        return Read(count, [&] { return mixer_.DeviceCount(); });
    }
    STDMETHODIMP get_DeviceName(BSTR* name) final {
        return ReadText(name, [&] { return mixer_.DeviceName(); });
    }
    STDMETHODIMP get_DeviceNum(SHORT* number) final {
        return Read(number, [&] { return mixer_.DeviceNumber(); });
    }
    STDMETHODIMP put_DeviceNum(SHORT number) final {
        return automation::Guarded([&] { mixer_.SelectDevice(number); });
    }

    STDMETHODIMP get_LineCount(SHORT* count) final {
        return Read(count, [&] { return mixer_.LineCount(); });
    }
    STDMETHODIMP get_LineName(BSTR* name) final {
        return ReadText(name, [&] { return mixer_.LineName(); });
    }
    STDMETHODIMP get_LineNum(SHORT* number) final {
        return Read(number, [&] { return mixer_.LineNumber(); });
    }
    STDMETHODIMP put_LineNum(SHORT number) final {
        return automation::Guarded([&] { mixer_.SelectLine(number); });
    }
    STDMETHODIMP get_LineHasVolume(VARIANT_BOOL* has) final { return Give(has, Switch(true)); }
    STDMETHODIMP get_LineVolume(LONG* percent) final {
        return Read(percent, [&] { return mixer_.Volume(); });
    }
    STDMETHODIMP put_LineVolume(LONG percent) final {
        return automation::Guarded([&] { mixer_.SetVolume(percent); });
    }
    STDMETHODIMP get_LineHasBalance(VARIANT_BOOL* has) final {
        return Read(has, [&] { return Switch(mixer_.HasBalance()); });
    }
    STDMETHODIMP get_LineBalance(SHORT* balance) final {
        return Read(balance, [&] { return mixer_.Balance(); });
    }
    STDMETHODIMP put_LineBalance(SHORT balance) final {
        return automation::Guarded([&] { mixer_.SetBalance(balance); });
    }
    STDMETHODIMP get_LineHasSwitch(VARIANT_BOOL* has) final { return Give(has, Switch(true)); }
    STDMETHODIMP get_LineSwitch(VARIANT_BOOL* on) final {
        return Read(on, [&] { return Switch(mixer_.IsLineOn() == kOnMeansOn); });
    }
    STDMETHODIMP put_LineSwitch(VARIANT_BOOL on) final {
        return automation::Guarded([&] { mixer_.SwitchLine((on != 0) == kOnMeansOn); });
    }
    STDMETHODIMP get_LineControlCount(SHORT* count) final {
        return Read(count, [&] { return mixer_.ControlCount(); });
    }
    STDMETHODIMP get_LineControlName(SHORT index, BSTR* name) final {
        return ReadText(name, [&] { return mixer_.ControlName(index); });
    }
    STDMETHODIMP get_LineControlValue(SHORT index, VARIANT* value) final {
        return automation::Guarded([&]() -> HRESULT {
            if (!value) return E_POINTER;
            VariantInit(value);
            value->vt = VT_I4;
            value->lVal = mixer_.ControlValue(index);
            return S_OK;
        });
    }
    STDMETHODIMP put_LineControlValue(SHORT index, VARIANT value) final {
        return automation::Guarded([&] {
            automation::Variant number;
            automation::ThrowIfFailed(VariantChangeType(&number, &value, 0, VT_I4));
            mixer_.SetControlValue(index, number.lVal);
        });
    }

protected:
    DeviceObject(IUnknown* outer, ServerAccess servers)
        : automation::AutomationObject<Derived, Primary>(outer), servers_(std::move(servers)) {}
    ~DeviceObject() = default;

    ServerAccess& Servers() { return servers_; }
    DeviceMixer& Mixer() { return mixer_; }

    template <class Target, class Reader>
    static HRESULT Read(Target* target, Reader reader) {
        return automation::Guarded([&] { return Give(target, reader()); });
    }
    template <class Reader>
    static HRESULT ReadText(BSTR* target, Reader reader) {
        return automation::Guarded([&]() -> HRESULT {
            if (!target) return E_POINTER;
            *target = automation::NewBstr(std::string_view(std::string(reader())));
            return S_OK;
        });
    }

private:
    // The switch of an output line is its mute.
    static constexpr bool kOnMeansOn = Way == Direction::Input;

    ServerAccess servers_;
    DeviceMixer mixer_{servers_, Way};
};

}  // namespace mavrin2::devices
