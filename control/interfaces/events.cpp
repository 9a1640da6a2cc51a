#include "control/interfaces/events.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::interfaces {

const automation::InterfaceDescription& ControlEvents() {
    static const automation::InterfaceDescription description =
        automation::EventsBuilder("_IMavrin2Events", DIID_IMavrin2Events,
                                  "What the control reports", &ControlLibrary)
            .Event(ControlEvent::BlockOperation, "BlockOperation",
                   "How far a long operation has come, 0 ... 100", {{"Percent", VT_I2}})
            .Event(ControlEvent::ChangePosition, "ChangePosition", "Selection or view have changed")
            .Event(ControlEvent::EndOperation, "EndOperation", "A long operation has ended")
            .Build();
    return description;
}

}  // namespace mavrin2::interfaces
