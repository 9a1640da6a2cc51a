#include "control/interfaces/device.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Device>() {
    using I = interfaces::IMavrin2Device;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Device", "Devices for playback or recording",
                            &interfaces::ControlLibrary)
            .Get<&I::get_Count>(1, "Count", "Number of devices")
            .Property<&I::get_Num, &I::put_Num>(2, "Num", "Selected device, from 1")
            .Get<&I::get_Name>(3, "Name", "Name of the selected device")
            .Property<&I::get_Volume, &I::put_Volume>(5, "Volume",
                                                      "Of an output device, 0 ... 100 percent")
            .Get<&I::get_DeviceLines>(6, "DeviceLines", "Mixer lines of the selected device")
            .Property<&I::get_BufferSize, &I::put_BufferSize>(7, "BufferSize",
                                                              "Milliseconds of a block of sound")
            .Property<&I::get_TimerInterval, &I::put_TimerInterval>(
                8, "TimerInterval", "Milliseconds between two levels")
            .Property<&I::get_BufferCount, &I::put_BufferCount>(
                9, "BufferCount", "Blocks that are queued when playback begins")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
