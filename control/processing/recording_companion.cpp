#include "control/processing/recording_companion.h"

#include <utility>

namespace mavrin2::processing {

using contracts::IRimbal2;
using contracts::RimbalEvent;

void RecordingCompanion::Attach(automation::ComPtr<IRimbal2> companion) {
    Connect(std::move(companion), contracts::DIID_IRimbal2Events,
            [this](DISPID event, const automation::EventArguments& arguments) {
                return OnEvent(event, arguments);
            });
}

void RecordingCompanion::DisableFilters() {
    Call(&IRimbal2::put_NotchFilterEnabled, VARIANT_BOOL{0});
    Call(&IRimbal2::put_LowPassFilterEnabled, VARIANT_BOOL{0});
    Call(&IRimbal2::put_HighPassFilterEnabled, VARIANT_BOOL{0});
}

HRESULT RecordingCompanion::OnEvent(DISPID event, const automation::EventArguments& arguments) {
    if (!listener_) return S_OK;
    LONG values[3] = {};
    switch (static_cast<RimbalEvent>(event)) {
        case RimbalEvent::BlockReady:
            listener_->BlockReady();
            return S_OK;
        case RimbalEvent::Position:
            if (!arguments.Read(0, values[0])) return E_NOTIMPL;
            arguments.Read(1, values[1]);
            if (!arguments.Read(2, values[2])) return E_NOTIMPL;
            listener_->RecordedTo({values[0], values[1], values[2]});
            return S_OK;
        case RimbalEvent::Gain:
            if (!arguments.Read(0, values[0])) return E_NOTIMPL;
            listener_->GainChanged(values[0]);
            return S_OK;
    }
    return E_NOTIMPL;
}

}  // namespace mavrin2::processing
