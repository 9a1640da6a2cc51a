#include "companions/contracts/companion_events.h"

#include "automation/interface_builder.h"

namespace mavrin2::contracts {
using automation::EventsBuilder;
using automation::InterfaceDescription;

const InterfaceDescription& VeltoEvents() {
    static const InterfaceDescription description =
        EventsBuilder("_IVelto2Events", DIID_IVelto2Events, "Progress of playback")
            .Event(VeltoEvent::BlockDone, "BlockDone", "A queued block has been played")
            .Event(VeltoEvent::Position, "PositionEvent",
                   "Frames played since the start, and levels",
                   {{"Frames", VT_I4}, {"LevelLeft", VT_I4}, {"LevelRight", VT_I4}})
            .Event(VeltoEvent::BlockDoneToo, "BlockDoneToo", "A queued block has been played")
            .Event(VeltoEvent::EndOfData, "EndOfData", "Everything queued has been played")
            .Build();
    return description;
}

const InterfaceDescription& RimbalEvents() {
    static const InterfaceDescription description =
        EventsBuilder("_IRimbal2Events", DIID_IRimbal2Events, "Progress of capture")
            .Event(RimbalEvent::BlockReady, "BlockReady", "A captured block waits to be read")
            .Event(RimbalEvent::Position, "PositionEvent",
                   "Frames captured since the start, and levels",
                   {{"Frames", VT_I4}, {"LevelLeft", VT_I4}, {"LevelRight", VT_I4}})
            .Event(RimbalEvent::Gain, "GainEvent", "The gain control has changed the gain",
                   {{"Value", VT_I4}})
            .Build();
    return description;
}

const InterfaceDescription& KestrinEvents() {
    static const InterfaceDescription description =
        EventsBuilder("_IKestrin2Events", DIID_IKestrin2Events, "Progress of a transform")
            .Event(KestrinEvent::Progress, "Progress", "How far the operation has come",
                   {{"Percent", VT_I4}})
            .Event(KestrinEvent::Done, "Done", "The operation has ended")
            .Build();
    return description;
}

const InterfaceDescription& PindleEvents() {
    static const InterfaceDescription description =
        EventsBuilder("_IPindleCD2Events", DIID_IPindleCD2Events, "Progress of a CD track")
            .Event(PindleEvent::Progress, "Progress", "How far the track has been read",
                   {{"Percent", VT_I4}})
            .Build();
    return description;
}

}  // namespace mavrin2::contracts
