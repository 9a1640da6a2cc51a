#include "control/interfaces/position.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"
#include "control/interfaces/member_plan.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Position>() {
    using I = interfaces::IMavrin2Position;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Position", "Selection, view and positions in sample frames",
                            interfaces::plan::Position, &interfaces::ControlLibrary)
            .Method<&I::SecToSamples>("SecToSamples", "Milliseconds to sample frames, rounded",
                                      In("Millisec"), Result("Samples"))
            .Method<&I::SamplesToSec>("SamplesToSec", "Sample frames to milliseconds, rounded",
                                      In("Samples"), Result("Millisec"))
            .Get<&I::get_StartSelect>("StartSelect", "First selected frame, or current position")
            .Put<&I::put_StartSelect>("StartSelect", "0 ... TotalSamples")
            .Get<&I::get_EndSelect>("EndSelect", "End of the selection in frames")
            .Put<&I::put_EndSelect>("EndSelect", "0 ... TotalSamples")
            .Get<&I::get_StartView>("StartView", "First visible frame")
            .Put<&I::put_StartView>("StartView", "0 ... TotalSamples")
            .Get<&I::get_EndView>("EndView", "End of the visible range in frames")
            .Put<&I::put_EndView>("EndView", "0 ... TotalSamples")
            .GetBoolean<&I::get_Selected>("Selected", "Whether a range is selected")
            .PutBoolean<&I::put_Selected>("Selected", "Kept as given")
            .Get<&I::get_TotalSamples>("TotalSamples", "Length of the document in frames")
            .Get<&I::get_CurrentPosition>("CurrentPosition", "Frame of the edit or play cursor")
            .Put<&I::put_CurrentPosition>("CurrentPosition", "0 ... TotalSamples; stops playing")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
