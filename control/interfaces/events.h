#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// The dispatch identifiers of the control's events.
enum class ControlEvent : DISPID {
    DblClick = 1,
    MouseDown = 2,
    MouseUp = 3,
    MouseMove = 4,
    Meter = 5,
    BlockOperation = 6,
    ChangePosition = 7,
    EndPlay = 8,
    ChangePlayPosition = 9,
    EndOperation = 11,
    MarkerClick = 12,
    NewMarker = 13,
    GainChange = 14,
    ScaleXClick = 16,
    ScaleYClick = 17,
    ChangeMarker = 18
};

// The events a host connects to.
const automation::InterfaceDescription& ControlEvents();

}  // namespace mavrin2::interfaces
