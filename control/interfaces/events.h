#pragma once

#include "automation/interface_description.h"
#include "control/interfaces/identifiers.h"

namespace mavrin2::interfaces {

// The dispatch identifiers of the control's events.
enum class ControlEvent : DISPID { BlockOperation = 6, ChangePosition = 7, EndOperation = 11 };

// The events a host connects to, of those that are raised so far.
const automation::InterfaceDescription& ControlEvents();

}  // namespace mavrin2::interfaces
