#include "control/interfaces/events.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::interfaces {

const automation::InterfaceDescription& ControlEvents() {
    static const automation::InterfaceDescription description =
        automation::EventsBuilder("_IMavrin2Events", DIID_IMavrin2Events, "Events of the control",
                                  &ControlLibrary)
            .Event(ControlEvent::BlockOperation, "BlockOperation",
                   "Progress of a long operation in percent, 0 ... 100", {{"Percent", VT_I2}})
            .Event(ControlEvent::ChangePosition, "ChangePosition",
                   "The selection or the visible range has changed")
            .Event(ControlEvent::EndOperation, "EndOperation", "A long operation has ended")
            .Build();
    return description;
}

}  // namespace mavrin2::interfaces
