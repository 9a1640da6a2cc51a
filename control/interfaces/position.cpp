#include "control/interfaces/position.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Position>() {
    using I = interfaces::IMavrin2Position;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Position", "Selection, view and positions in sample frames",
                            &interfaces::ControlLibrary)
            .Method<&I::SecToSamples>(1, "SecToSamples", "Milliseconds to sample frames, rounded",
                                      In("Millisec"), Result("Samples"))
            .Method<&I::SamplesToSec>(2, "SamplesToSec", "Sample frames to milliseconds, rounded",
                                      In("Samples"), Result("Millisec"))
            .Method<&I::GoToMarker>(3, "GoToMarker", "Selects the marker of that number, from 1",
                                    In("Num"))
            .Property<&I::get_StartSelect, &I::put_StartSelect>(
                4, "StartSelect", "First selected frame, or the current position")
            .Property<&I::get_EndSelect, &I::put_EndSelect>(5, "EndSelect",
                                                            "End of the selection in frames")
            .Property<&I::get_StartView, &I::put_StartView>(6, "StartView", "First visible frame")
            .Property<&I::get_EndView, &I::put_EndView>(7, "EndView",
                                                        "End of the visible range in frames")
            .BooleanProperty<&I::get_Selected, &I::put_Selected>(8, "Selected",
                                                                 "Whether a range is selected")
            .Get<&I::get_TotalSamples>(9, "TotalSamples", "Length of the document in frames")
            .Property<&I::get_CurrentPosition, &I::put_CurrentPosition>(
                10, "CurrentPosition",
                "Frame of the edit or play cursor; writing it stops playback")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
