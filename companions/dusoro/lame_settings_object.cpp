#include "companions/dusoro/lame_settings_object.h"

#include "automation/text.h"

namespace mavrin2::dusoro {

using contracts::ILameSettings;
using contracts::LameSettings;

namespace {

class Reading {
public:
    explicit Reading(ILameSettings& object) : object_(object) {}

    template <class Value, class Field>
    void Get(HRESULT (STDMETHODCALLTYPE ILameSettings::*get)(Value*), Field& field) {
        Value value{};
        if (SUCCEEDED((object_.*get)(&value))) field = static_cast<Field>(value);
    }
    // Kept as the opposite.
    void GetInverted(HRESULT (STDMETHODCALLTYPE ILameSettings::*get)(VARIANT_BOOL*),
                     std::int16_t& field) {
        VARIANT_BOOL value = VARIANT_TRUE;
        if (SUCCEEDED((object_.*get)(&value))) field = value == 0 ? 1 : 0;
    }

private:
    ILameSettings& object_;
};

}  // namespace

STDMETHODIMP LameSettingsObject::SetParamsFromCommandLine(BSTR CommandLine) {
    return automation::Guarded([&] {
        contracts::ApplyLameCommandLine(settings_,
                                        automation::ToUtf8(automation::Bstr::View(CommandLine)));
    });
}

STDMETHODIMP LameSettingsObject::SetParamsFromPreset(SHORT Preset) {
    contracts::ApplyLamePreset(settings_, Preset);
    return S_OK;
}

STDMETHODIMP LameSettingsObject::SetParamsFromAltPreset(SHORT Preset) {
    contracts::ApplyLamePreset(settings_, Preset + contracts::kAltPresets);
    return S_OK;
}

STDMETHODIMP LameSettingsObject::get_PresetKind(SHORT* Value) {
    return Read(Value, settings_.PresetKind);
}

LameSettings ReadLameSettings(ILameSettings& object) {
    LameSettings read;
    Reading from(object);
    from.Get(&ILameSettings::get_VbrBitrate, read.VbrBitrate);
    from.Get(&ILameSettings::get_VbrQuality, read.VbrQuality);
    from.Get(&ILameSettings::get_VbrCodingMethod, read.VbrCodingMethod);
    from.Get(&ILameSettings::get_AbrBitrate, read.AbrBitrate);
    from.Get(&ILameSettings::get_TypeStereo, read.TypeStereo);
    from.Get(&ILameSettings::get_EncoderQuality, read.EncoderQuality);
    from.Get(&ILameSettings::get_WritingVBRHeader, read.WritingVbrHeader);
    from.Get(&ILameSettings::get_BlockTypeControl, read.BlockTypeControl);
    from.Get(&ILameSettings::get_Emphasis, read.Emphasis);
    from.Get(&ILameSettings::get_StrictISOCompliance, read.StrictIsoCompliance);
    from.Get(&ILameSettings::get_StrictlyEnforceMinBitrate, read.StrictMinBitrate);
    from.Get(&ILameSettings::get_ATHControlMode, read.AthControlMode);
    from.Get(&ILameSettings::get_LowPassFrequency, read.LowPassFrequency);
    from.Get(&ILameSettings::get_HighPassFrequency, read.HighPassFrequency);
    from.Get(&ILameSettings::get_LowPassWidth, read.LowPassWidth);
    from.Get(&ILameSettings::get_HighPassWidth, read.HighPassWidth);
    from.Get(&ILameSettings::get_ErrorProtection, read.ErrorProtection);
    from.Get(&ILameSettings::get_Frequency, read.Frequency);
    from.Get(&ILameSettings::get_Channels, read.Channels);
    from.Get(&ILameSettings::get_Bitrate, read.Bitrate);
    from.Get(&ILameSettings::get_PresetKind, read.PresetKind);
    from.GetInverted(&ILameSettings::get_BitReservoir, read.NoBitReservoir);
    from.GetInverted(&ILameSettings::get_ShortBlocks, read.NoShortBlocks);
    return read;
}

}  // namespace mavrin2::dusoro
