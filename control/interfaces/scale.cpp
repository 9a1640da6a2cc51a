#include "control/interfaces/scale.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"
#include "control/interfaces/member_plan.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Scale>() {
    using I = interfaces::IMavrin2Scale;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Scale", "The scale of time or of levels",
                            interfaces::plan::Scale, &interfaces::ControlLibrary)
            .Get<&I::get_Font>("Font", "Font of the labels")
            .Put<&I::put_Font>("Font", "A font object")
            .PutReference<&I::putref_Font>("Font", "A font object")
            .Get<&I::get_Type>("Type", "What is counted")
            .Put<&I::put_Type>("Type", "Time: 1 frames, 2 time; level: 1 samples, 2 percent, 3 dB")
            .Get<&I::get_Visible>("Visible", "Whether the scale is shown")
            .Put<&I::put_Visible>("Visible", "0 hides it")
            .Get<&I::get_Grid>("Grid", "Whether lines are drawn across the waveform")
            .Put<&I::put_Grid>("Grid", "0 hides them")
            .Get<&I::get_Orientation>("Orientation", "Where the level scale stands")
            .Put<&I::put_Orientation>("Orientation", "1 right, 2 left")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
