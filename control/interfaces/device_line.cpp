#include "control/interfaces/device_line.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2DeviceLine>() {
    using I = interfaces::IMavrin2DeviceLine;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2DeviceLine", "Mixer lines of a sound device",
                            &interfaces::ControlLibrary)
            .Get<&I::get_Count>(1, "Count", "Number of lines")
            .Property<&I::get_Num, &I::put_Num>(2, "Num", "Selected line, from 1")
            .Get<&I::get_Name>(3, "Name", "Name of the selected line")
            .Get<&I::get_AdvancedName>(4, "AdvancedName", "Name of a further control, from 1",
                                       In("index"))
            .Get<&I::get_AdvancedCount>(5, "AdvancedCount", "Further controls of the line")
            .Property<&I::get_VolumeBalance, &I::put_VolumeBalance>(
                6, "VolumeBalance", "-100 (left only) ... 100 (right only)")
            .Property<&I::get_Volume, &I::put_Volume>(7, "Volume",
                                                      "Volume of the line, 0 ... 100 percent")
            .Property<&I::get_AdvancedValue, &I::put_AdvancedValue>(
                8, "AdvancedValue", "Value of a further control, from 1", In("index"))
            .BooleanProperty<&I::get_Select, &I::put_Select>(
                9, "Select", "Whether the line is heard or recorded")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
