#include "companions/contracts/companion_events.h"

#include "automation/interface_builder.h"

namespace mavrin2::contracts {
namespace {

using automation::EventsBuilder;
using automation::InterfaceDescription;
using automation::PlannedMember;

template <class Event>
constexpr PlannedMember Planned(const char* name, Event event) {
    return {name, static_cast<DISPID>(event)};
}

constexpr PlannedMember kVelto[] = {
    Planned("BlockDone", VeltoEvent::BlockDone), Planned("Reserved", VeltoEvent::Reserved),
    Planned("PositionEvent", VeltoEvent::Position),
    Planned("BlockDoneToo", VeltoEvent::BlockDoneToo), Planned("EndOfData", VeltoEvent::EndOfData)};
constexpr PlannedMember kRimbal[] = {Planned("BlockReady", RimbalEvent::BlockReady),
                                     Planned("PositionEvent", RimbalEvent::Position),
                                     Planned("GainEvent", RimbalEvent::Gain)};
constexpr PlannedMember kKestrin[] = {Planned("Progress", KestrinEvent::Progress),
                                      Planned("Done", KestrinEvent::Done)};
constexpr PlannedMember kPindle[] = {Planned("Progress", PindleEvent::Progress)};

}  // namespace

const InterfaceDescription& VeltoEvents() {
    static const InterfaceDescription description =
        EventsBuilder("_IVelto2Events", DIID_IVelto2Events, "Progress of playback", kVelto)
            .Event("BlockDone", "A queued block has been played")
            .Event("PositionEvent", "Frames played since the start, and levels",
                   {{"Frames", VT_I4}, {"LevelLeft", VT_I4}, {"LevelRight", VT_I4}})
            .Event("BlockDoneToo", "A queued block has been played")
            .Event("EndOfData", "Everything queued has been played")
            .Build();
    return description;
}

const InterfaceDescription& RimbalEvents() {
    static const InterfaceDescription description =
        EventsBuilder("_IRimbal2Events", DIID_IRimbal2Events, "Progress of capture", kRimbal)
            .Event("BlockReady", "A captured block waits to be read")
            .Event("PositionEvent", "Frames captured since the start, and levels",
                   {{"Frames", VT_I4}, {"LevelLeft", VT_I4}, {"LevelRight", VT_I4}})
            .Event("GainEvent", "The gain control has changed the gain", {{"Value", VT_I4}})
            .Build();
    return description;
}

const InterfaceDescription& KestrinEvents() {
    static const InterfaceDescription description =
        EventsBuilder("_IKestrin2Events", DIID_IKestrin2Events, "Progress of a transform", kKestrin)
            .Event("Progress", "How far the operation has come", {{"Percent", VT_I4}})
            .Event("Done", "The operation has ended")
            .Build();
    return description;
}

const InterfaceDescription& PindleEvents() {
    static const InterfaceDescription description =
        EventsBuilder("_IPindleCD2Events", DIID_IPindleCD2Events, "Progress of a CD track", kPindle)
            .Event("Progress", "How far the track has been read", {{"Percent", VT_I4}})
            .Build();
    return description;
}

}  // namespace mavrin2::contracts
