#include "control/server/companion_callbacks.h"

#include "companions/contracts/companion_events.h"

namespace mavrin2::server {

using contracts::KestrinEvent;
using contracts::PindleEvent;
using contracts::RimbalEvent;
using contracts::VeltoEvent;

CVeltoCallback::CVeltoCallback(PlaybackReactions& control)
    : CompanionSink(contracts::DIID_IVelto2Events), control_(control) {}

HRESULT CVeltoCallback::Handle(DISPID event, const EventArguments& arguments) {
    switch (static_cast<VeltoEvent>(event)) {
        case VeltoEvent::BlockDone:
        case VeltoEvent::BlockDoneToo:
            control_.FeedBlock();
            return S_OK;
        case VeltoEvent::Reserved:
            return S_OK;
        case VeltoEvent::Position: {
            LONG frames = 0;
            LONG left = 0;
            LONG right = 0;
            if (!arguments.Read(0, frames)) return E_NOTIMPL;
            arguments.Read(1, left);
            arguments.Read(2, right);
            // A device that has not played anything yet has nothing to show.
            if (frames <= 0) return S_OK;
            control_.UpdatePlayCursor(frames);
            control_.Meter(left, right);
            return S_OK;
        }
        case VeltoEvent::EndOfData:
            control_.EndOfData();
            return S_OK;
    }
    return E_NOTIMPL;
}

CRimbalCallback::CRimbalCallback(CaptureReactions& control)
    : CompanionSink(contracts::DIID_IRimbal2Events), control_(control) {}

HRESULT CRimbalCallback::Handle(DISPID event, const EventArguments& arguments) {
    switch (static_cast<RimbalEvent>(event)) {
        case RimbalEvent::BlockReady:
            control_.StoreRecordedBlock();
            return S_OK;
        case RimbalEvent::Position: {
            LONG frames = 0;
            LONG left = 0;
            LONG right = 0;
            if (!arguments.Read(0, frames)) return E_NOTIMPL;
            arguments.Read(1, left);
            if (!arguments.Read(2, right)) return E_NOTIMPL;
            control_.UpdateRecordCursor(frames);
            control_.Meter(left, right);
            return S_OK;
        }
        case RimbalEvent::Gain: {
            LONG volume = 0;
            if (!arguments.Read(0, volume)) return E_NOTIMPL;
            control_.GainChange(volume);
            return S_OK;
        }
    }
    return E_NOTIMPL;
}

CKestrinCallback::CKestrinCallback(TransformReactions& control)
    : CompanionSink(contracts::DIID_IKestrin2Events), control_(control) {}

HRESULT CKestrinCallback::Handle(DISPID event, const EventArguments& arguments) {
    switch (static_cast<KestrinEvent>(event)) {
        case KestrinEvent::Progress: {
            LONG percent = 0;
            if (!arguments.Read(0, percent)) return E_NOTIMPL;
            control_.ReportTransformProgress(percent);
            return S_OK;
        }
        case KestrinEvent::Done:
            control_.ReportTransformProgress(100);
            return S_OK;
    }
    return E_NOTIMPL;
}

CPindleCallback::CPindleCallback(CdReactions& control)
    : CompanionSink(contracts::DIID_IPindleCD2Events), control_(control) {}

HRESULT CPindleCallback::Handle(DISPID event, const EventArguments& arguments) {
    if (static_cast<PindleEvent>(event) != PindleEvent::Progress) return E_NOTIMPL;
    LONG percent = 0;
    if (!arguments.Read(0, percent)) return E_NOTIMPL;
    control_.ShowProgress(percent);
    return S_OK;
}

}  // namespace mavrin2::server
