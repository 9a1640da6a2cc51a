#pragma once

#include <type_traits>

#include "automation/object.h"
#include "companions/contracts/lame_settings.h"
#include "companions/contracts/lame_settings_interface.h"

namespace mavrin2::contracts {

// The properties of an object with the settings of the MP3 encoder, over a record of them.
// `Interface` has those of ILameSettings; `Types` names the types of the five that are enumerations
// to hosts. After each change `Object::Changed(put, value)` hears which one it was.
template <class Object, class Interface, class Types>
class LameProperties : public automation::AutomationObject<Object, Interface> {
public:
    using automation::AutomationObject<Object, Interface>::AutomationObject;

#define MAVRIN2_LAME_PROPERTY(name, type, field)                         \
    STDMETHODIMP get_##name(std::add_pointer_t<type> Value) final {      \
        return Read(Value, settings_.field);                             \
    }                                                                    \
    STDMETHODIMP put_##name(type Value) final {                          \
        settings_.field = static_cast<decltype(settings_.field)>(Value); \
        return Tell(&ILameSettings::put_##name, Value);                  \
    }
// Kept as the opposite.
#define MAVRIN2_LAME_INVERTED(name, field)                \
    STDMETHODIMP get_##name(VARIANT_BOOL* Value) final {  \
        return Read(Value, settings_.field == 0 ? 1 : 0); \
    }                                                     \
    STDMETHODIMP put_##name(VARIANT_BOOL Value) final {   \
        settings_.field = Value == 0 ? 1 : 0;             \
        return Tell(&ILameSettings::put_##name, Value);   \
    }

    MAVRIN2_LAME_PROPERTY(VbrBitrate, typename Types::Bitrate, VbrBitrate)
    MAVRIN2_LAME_PROPERTY(VbrQuality, SHORT, VbrQuality)
    MAVRIN2_LAME_PROPERTY(VbrCodingMethod, typename Types::Method, VbrCodingMethod)
    MAVRIN2_LAME_PROPERTY(AbrBitrate, SHORT, AbrBitrate)
    MAVRIN2_LAME_PROPERTY(TypeStereo, typename Types::Stereo, TypeStereo)
    MAVRIN2_LAME_PROPERTY(EncoderQuality, SHORT, EncoderQuality)
    MAVRIN2_LAME_PROPERTY(WritingVBRHeader, VARIANT_BOOL, WritingVbrHeader)
    MAVRIN2_LAME_INVERTED(BitReservoir, NoBitReservoir)
    MAVRIN2_LAME_PROPERTY(BlockTypeControl, VARIANT_BOOL, BlockTypeControl)
    MAVRIN2_LAME_INVERTED(ShortBlocks, NoShortBlocks)
    MAVRIN2_LAME_PROPERTY(Emphasis, SHORT, Emphasis)
    MAVRIN2_LAME_PROPERTY(StrictISOCompliance, VARIANT_BOOL, StrictIsoCompliance)
    MAVRIN2_LAME_PROPERTY(StrictlyEnforceMinBitrate, VARIANT_BOOL, StrictMinBitrate)
    MAVRIN2_LAME_PROPERTY(ATHControlMode, SHORT, AthControlMode)
    MAVRIN2_LAME_PROPERTY(LowPassFrequency, LONG, LowPassFrequency)
    MAVRIN2_LAME_PROPERTY(HighPassFrequency, LONG, HighPassFrequency)
    MAVRIN2_LAME_PROPERTY(LowPassWidth, LONG, LowPassWidth)
    MAVRIN2_LAME_PROPERTY(HighPassWidth, LONG, HighPassWidth)
    MAVRIN2_LAME_PROPERTY(ErrorProtection, VARIANT_BOOL, ErrorProtection)
    MAVRIN2_LAME_PROPERTY(Frequency, typename Types::Frequency, Frequency)
    MAVRIN2_LAME_PROPERTY(Channels, typename Types::Channels, Channels)
    MAVRIN2_LAME_PROPERTY(Bitrate, typename Types::Bitrate, Bitrate)

#undef MAVRIN2_LAME_PROPERTY
#undef MAVRIN2_LAME_INVERTED

protected:
    ~LameProperties() = default;

    template <class Target, class Value>
    static HRESULT Read(Target* target, Value value) {
        if (!target) return E_POINTER;
        *target = static_cast<Target>(value);
        return S_OK;
    }

    LameSettings settings_;

private:
    template <class Put, class Value>
    HRESULT Tell(Put put, Value value) {
        static_cast<Object*>(this)->Changed(put, value);
        return S_OK;
    }
};

}  // namespace mavrin2::contracts
