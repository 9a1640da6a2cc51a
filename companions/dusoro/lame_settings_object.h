#pragma once

#include "companions/contracts/lame_properties.h"

namespace mavrin2::dusoro {

struct LameSettingsTypes {
    using Bitrate = LONG;
    using Method = LONG;
    using Stereo = LONG;
    using Frequency = LONG;
    using Channels = LONG;
};

// The class KovDusoroLame: how MP3 is encoded, for SetFormatMP3Ex.
class LameSettingsObject final
    : public contracts::LameProperties<LameSettingsObject, contracts::ILameSettings,
                                       LameSettingsTypes> {
public:
    using LameProperties::LameProperties;
    ~LameSettingsObject() = default;

    template <class Put, class Value>
    void Changed(Put, Value) {}  // read when a file is started

    STDMETHODIMP SetParamsFromCommandLine(BSTR CommandLine) override;
    STDMETHODIMP SetParamsFromPreset(SHORT Preset) override;
    STDMETHODIMP SetParamsFromAltPreset(SHORT Preset) override;
    STDMETHODIMP get_PresetKind(SHORT* Value) override;
};

// What such an object has now, by its interface: it may be another component's.
contracts::LameSettings ReadLameSettings(contracts::ILameSettings& object);

}  // namespace mavrin2::dusoro
