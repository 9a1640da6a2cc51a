#include "control/objects/lame_enc.h"

#include "automation/text.h"

namespace mavrin2::objects {

using contracts::ILameSettings;

CMavrin2LameEnc::CMavrin2LameEnc(IUnknown* outer, const CompanionFactory& companions)
    : LameProperties(outer), shared_(Identity()) {
    // Without it the settings are kept all the same.
    companions(contracts::CLSID_KovDusoroLame, ILameSettings::Id, shared_.Companion.PutVoid());
}

STDMETHODIMP CMavrin2LameEnc::SetParamsFromCommandLine(BSTR CommandLine) {
    return automation::Guarded([&] {
        const std::string line = automation::ToUtf8(automation::Bstr::View(CommandLine));
        contracts::ApplyLameCommandLine(settings_, line);
        Forward([&](ILameSettings& companion) { companion.SetParamsFromCommandLine(CommandLine); });
    });
}

STDMETHODIMP CMavrin2LameEnc::SetParamsFromPreset(SHORT Preset) {
    contracts::ApplyLamePreset(settings_, Preset);
    Forward([&](ILameSettings& companion) { companion.SetParamsFromPreset(Preset); });
    return S_OK;
}

STDMETHODIMP CMavrin2LameEnc::SetParamsFromAltPreset(SHORT Preset) {
    contracts::ApplyLamePreset(settings_, Preset + contracts::kAltPresets);
    Forward([&](ILameSettings& companion) { companion.SetParamsFromAltPreset(Preset); });
    return S_OK;
}

}  // namespace mavrin2::objects
