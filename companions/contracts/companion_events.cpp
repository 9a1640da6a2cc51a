#include "companions/contracts/companion_events.h"

#include "automation/interface_builder.h"
#include "companions/contracts/kestrin.h"

namespace mavrin2::contracts {
using automation::EventsBuilder;
using automation::InterfaceDescription;

const InterfaceDescription& KestrinEvents() {
    static const InterfaceDescription description =
        EventsBuilder("_IKestrin2Events", DIID_IKestrin2Events, "Progress of a transform",
                      &KestrinLibrary)
            .Event(KestrinEvent::Progress, "Progress", "Progress in percent", {{"Percent", VT_I4}})
            .Event(KestrinEvent::Done, "Done", "The operation has ended")
            .Build();
    return description;
}

}  // namespace mavrin2::contracts
