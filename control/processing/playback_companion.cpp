#include "control/processing/playback_companion.h"

#include <utility>

namespace mavrin2::processing {

using contracts::VeltoEvent;

void PlaybackCompanion::Attach(automation::ComPtr<contracts::IVelto2> companion) {
    Connect(std::move(companion), contracts::DIID_IVelto2Events,
            [this](DISPID event, const automation::EventArguments& arguments) {
                return OnEvent(event, arguments);
            });
}

HRESULT PlaybackCompanion::OnEvent(DISPID event, const automation::EventArguments& arguments) {
    if (!listener_) return S_OK;
    switch (static_cast<VeltoEvent>(event)) {
        case VeltoEvent::BlockDone:
        case VeltoEvent::BlockDoneAnother:
            listener_->BlockDone();
            return S_OK;
        case VeltoEvent::Ignored:
            return S_OK;
        case VeltoEvent::Position: {
            LONG values[3] = {};
            if (!arguments.Read(0, values[0])) return E_NOTIMPL;
            arguments.Read(1, values[1]);
            arguments.Read(2, values[2]);
            listener_->PlayedTo({values[0], values[1], values[2]});
            return S_OK;
        }
        case VeltoEvent::EndOfData:
            listener_->EndOfData();
            return S_OK;
    }
    return E_NOTIMPL;
}

}  // namespace mavrin2::processing
