#pragma once

#include <vector>

#include "automation/com_ptr.h"
#include "tests/automation/thing.h"

namespace mavrin2::tests {

// A way in which late-bound calls reach an object.
struct WayToCall {
    const char* Name;
    automation::ComPtr<IDispatch> (*To)(ITestThing& thing);
    bool TellsWhichArgumentIsWrong;
};

// Those of the running system. The first is the object's own.
std::vector<WayToCall> WaysToCall();

}  // namespace mavrin2::tests
