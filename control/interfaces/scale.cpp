#include "control/interfaces/scale.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Scale>() {
    using I = interfaces::IMavrin2Scale;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Scale", "The scale of time or of levels",
                            &interfaces::ControlLibrary)
            .Property<&I::get_Font, &I::put_Font>(1, "Font", "Font of the labels")
            .PutReference<&I::putref_Font>(1, "Font", "A font object")
            .Property<&I::get_Type, &I::put_Type>(
                2, "Type",
                "Unit: time in 1 frames, 2 hours and minutes; level in 1 samples, 2 percent, 3 dB")
            .Property<&I::get_Visible, &I::put_Visible>(3, "Visible",
                                                        "Whether the scale is shown; 0 hides it")
            .Property<&I::get_Grid, &I::put_Grid>(
                4, "Grid", "Whether grid lines are drawn across the waveform; 0 hides them")
            .Property<&I::get_Orientation, &I::put_Orientation>(
                5, "Orientation", "Side of the level scale, 1 right, 2 left")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
