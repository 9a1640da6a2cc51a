#include "control/interfaces/events.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::interfaces {

namespace {

// Of an event at a place of the picture.
constexpr std::initializer_list<automation::EventsBuilder::Argument> kMouse = {
    {"Button", VT_I4}, {"Shift", VT_I4}, {"x", VT_I2}, {"y", VT_I2}};

}  // namespace

const automation::InterfaceDescription& ControlEvents() {
    static const automation::InterfaceDescription description =
        automation::EventsBuilder("_IMavrin2Events", DIID_IMavrin2Events, "Events of the control",
                                  &ControlLibrary)
            .Event(ControlEvent::DblClick, "DblClick", "A double click in a lane")
            .Event(ControlEvent::MouseDown, "MouseDown",
                   "Button 1 left, 2 right; Shift: sum of 1 Shift, 2 Ctrl, 4 another; in pixels",
                   kMouse)
            .Event(ControlEvent::MouseUp, "MouseUp", "As MouseDown, when it is released", kMouse)
            .Event(ControlEvent::MouseMove, "MouseMove",
                   "Button is the sum of those held: 1 left, 2 right, 4 middle", kMouse)
            .Event(ControlEvent::Meter, "Meter",
                   "Levels of the sound that plays or is recorded, 0 ... 32767",
                   {{"LevelLeft", VT_I4}, {"LevelRight", VT_I4}})
            .Event(ControlEvent::BlockOperation, "BlockOperation",
                   "Progress of a long operation in percent, 0 ... 100", {{"Percent", VT_I2}})
            .Event(ControlEvent::ChangePosition, "ChangePosition",
                   "The selection or the visible range has changed")
            .Event(ControlEvent::EndPlay, "EndPlay", "Playback has ended")
            .Event(ControlEvent::ChangePlayPosition, "ChangePlayPosition",
                   "Playback or recording has come to another place")
            .Event(ControlEvent::EndOperation, "EndOperation", "A long operation has ended")
            .Event(ControlEvent::MarkerClick, "MarkerClick",
                   "The user has clicked the marker of this number, from 1", {{"Num", VT_I4}})
            .Event(ControlEvent::NewMarker, "NewMarker",
                   "The user has made the marker of this number, from 1", {{"Num", VT_I4}})
            .Event(ControlEvent::GainChange, "GainChange",
                   "The automatic gain control of the recorder has another gain, in percent",
                   {{"newVolume", VT_I4}})
            .Event(ControlEvent::ScaleXClick, "ScaleXClick",
                   "The right button was pressed on the time scale")
            .Event(ControlEvent::ScaleYClick, "ScaleYClick",
                   "The right button was pressed on the level scale")
            .Event(ControlEvent::ChangeMarker, "ChangeMarker",
                   "The marker of this number, from 1, has another place", {{"Num", VT_I4}})
            .Build();
    return description;
}

}  // namespace mavrin2::interfaces
