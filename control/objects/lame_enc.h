#pragma once

#include <functional>

#include "automation/com_ptr.h"
#include "companions/contracts/lame_properties.h"
#include "control/interfaces/lame_enc.h"
#include "control/objects/private_interfaces.h"

namespace mavrin2::objects {

// As CoCreateInstance of an in-process class.
using CompanionFactory = std::function<HRESULT(REFCLSID id, REFIID iid, void** object)>;

struct LameEncTypes {
    using Bitrate = interfaces::BitrateConstants;
    using Method = interfaces::Mp3LameMethodConstants;
    using Stereo = interfaces::Mp3LameTypeStereoConstants;
    using Frequency = interfaces::FrequencyConstants;
    using Channels = interfaces::ChannelsConstants;
};

// A host's settings of the MP3 encoder. Each change also reaches a settings object of the file
// companion, which is what the encoder reads.
class CMavrin2LameEnc final
    : public contracts::LameProperties<CMavrin2LameEnc, interfaces::IMavrin2LameEnc, LameEncTypes> {
public:
    CMavrin2LameEnc(IUnknown* outer, const CompanionFactory& companions);
    ~CMavrin2LameEnc() = default;

    void Detach() {}
    void* FindInterface(REFIID iid) {
        return IsEqualGUID(iid, ILameCompanion::Id) ? static_cast<ILameCompanion*>(&shared_)
                                                    : nullptr;
    }

    template <class Put, class Value>
    void Changed(Put put, Value value) {
        Forward([&](contracts::ILameSettings& companion) { Call(companion, put, value); });
    }

    STDMETHODIMP SetParamsFromCommandLine(BSTR CommandLine) override;
    STDMETHODIMP SetParamsFromPreset(SHORT Preset) override;
    STDMETHODIMP SetParamsFromAltPreset(SHORT Preset) override;

private:
    // The companion's object, for the control.
    class Shared final : public automation::InterfacePart<ILameCompanion> {
    public:
        using InterfacePart::InterfacePart;
        contracts::ILameSettings* STDMETHODCALLTYPE Get() override { return Companion.Get(); }

        automation::ComPtr<contracts::ILameSettings> Companion;
    };

    template <class Argument, class Value>
    static void Call(contracts::ILameSettings& companion,
                     HRESULT (STDMETHODCALLTYPE contracts::ILameSettings::*put)(Argument),
                     Value value) {
        (companion.*put)(static_cast<Argument>(value));
    }
    void Forward(auto&& act) {
        if (shared_.Companion) act(*shared_.Companion.Get());
    }

    Shared shared_;
};

}  // namespace mavrin2::objects
