#include "tests/automation/ways_to_call.h"

namespace mavrin2::tests {

std::vector<WayToCall> WaysToCall() {
    return {{"TheObjectItself",
             [](ITestThing& thing) {
                 return automation::ComPtr<IDispatch>(static_cast<IDispatch*>(&thing));
             },
             true}};
}

}  // namespace mavrin2::tests
