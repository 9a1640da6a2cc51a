#pragma once

#include <string>

#include "automation/text.h"
#include "companions/contracts/lame_properties.h"

namespace mavrin2::tests {

struct FakeLameTypes {
    using Bitrate = LONG;
    using Method = LONG;
    using Stereo = LONG;
    using Frequency = LONG;
    using Channels = LONG;
};

// The file companion's settings of the MP3 encoder, which keep what they are told.
class FakeLame final
    : public contracts::LameProperties<FakeLame, contracts::ILameSettings, FakeLameTypes> {
public:
    using LameProperties::LameProperties;
    ~FakeLame() = default;

    template <class Put, class Value>
    void Changed(Put, Value) {}

    std::string Line;
    SHORT Preset = 0;

    STDMETHODIMP SetParamsFromCommandLine(BSTR CommandLine) override {
        Line = automation::ToUtf8(automation::Bstr::View(CommandLine));
        return S_OK;
    }
    STDMETHODIMP SetParamsFromPreset(SHORT Number) override {
        Preset = Number;
        return S_OK;
    }
    STDMETHODIMP SetParamsFromAltPreset(SHORT Number) override {
        Preset = static_cast<SHORT>(-Number);
        return S_OK;
    }
    STDMETHODIMP get_PresetKind(SHORT* Value) override { return Read(Value, 0); }
};

}  // namespace mavrin2::tests
