#pragma once

#include "automation/interface_description.h"
#include "companions/contracts/identifiers.h"

namespace mavrin2::contracts {

// What the companions with a life of their own report. All arguments are 32-bit integers; positions
// count sample frames from the start of the device, levels are the companion's own scale.

enum class VeltoEvent : DISPID {
    BlockDone = 1,
    Reserved = 2,
    Position = 3,  // frames, left level, right level
    BlockDoneToo = 4,
    EndOfData = 5
};
enum class RimbalEvent : DISPID {
    BlockReady = 1,
    Position = 2,  // frames, left level, right level
    Gain = 3       // the new gain
};
enum class KestrinEvent : DISPID {
    Progress = 1,  // percent
    Done = 2
};
enum class PindleEvent : DISPID {
    Progress = 1  // percent
};

const automation::InterfaceDescription& VeltoEvents();
const automation::InterfaceDescription& RimbalEvents();
const automation::InterfaceDescription& KestrinEvents();
const automation::InterfaceDescription& PindleEvents();

}  // namespace mavrin2::contracts
