#pragma once

#include "automation/interface_description.h"
#include "companions/contracts/identifiers.h"

namespace mavrin2::contracts {

// The events of companions. All arguments are 32-bit integers.

enum class KestrinEvent : DISPID {
    Progress = 1,  // percent
    Done = 2
};

const automation::InterfaceDescription& KestrinEvents();

}  // namespace mavrin2::contracts
