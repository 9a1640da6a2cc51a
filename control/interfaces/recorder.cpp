#include "control/interfaces/recorder.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Recorder>() {
    using I = interfaces::IMavrin2Recorder;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Recorder", "What happens to sound while it is recorded",
                            &interfaces::ControlLibrary)
            .Property<&I::get_AccuAttackTime, &I::put_AccuAttackTime>(
                1, "AccuAttackTime",
                "Milliseconds above the attack level that begin recording by sound")
            .Property<&I::get_AccuAttackLevel, &I::put_AccuAttackLevel>(
                2, "AccuAttackLevel", "Level that begins recording by sound, 0 ... 32767")
            .Property<&I::get_AccuReleaseTime, &I::put_AccuReleaseTime>(
                3, "AccuReleaseTime",
                "Milliseconds below the release level that end recording by sound")
            .Property<&I::get_AccuReleaseLevel, &I::put_AccuReleaseLevel>(
                4, "AccuReleaseLevel", "Level that ends recording by sound, 0 ... 32767")
            .BooleanProperty<&I::get_AccuEnabled, &I::put_AccuEnabled>(
                5, "AccuEnabled", "Whether only what is loud enough is recorded")
            .BooleanProperty<&I::get_NotchFilterEnabled, &I::put_NotchFilterEnabled>(
                10, "NotchFilterEnabled", "Whether the notch filter works")
            .BooleanProperty<&I::get_HighPassFilterEnabled, &I::put_HighPassFilterEnabled>(
                11, "HighPassFilterEnabled", "Whether the high-pass filter works")
            .BooleanProperty<&I::get_LowPassFilterEnabled, &I::put_LowPassFilterEnabled>(
                12, "LowPassFilterEnabled", "Whether the low-pass filter works")
            .Property<&I::get_HighPassFilterFrequency, &I::put_HighPassFilterFrequency>(
                13, "HighPassFilterFrequency", "Cutoff of the high-pass filter in hertz")
            .Property<&I::get_LowPassFilterFrequency, &I::put_LowPassFilterFrequency>(
                14, "LowPassFilterFrequency", "Cutoff of the low-pass filter in hertz")
            .Property<&I::get_NotchFilterFrequency, &I::put_NotchFilterFrequency>(
                15, "NotchFilterFrequency", "Frequency that the notch filter removes, in hertz")
            .Property<&I::get_AGCLowLevel, &I::put_AGCLowLevel>(
                20, "AGCLowLevel", "Peaks below this level are amplified, 0 ... 32767")
            .Property<&I::get_AGCHighLevel, &I::put_AGCHighLevel>(
                21, "AGCHighLevel", "Peaks above this level are attenuated, 0 ... 32767")
            .Property<&I::get_AGCAttackTime, &I::put_AGCAttackTime>(
                22, "AGCAttackTime",
                "Milliseconds in which the automatic gain control reaches another gain")
            .BooleanProperty<&I::get_AGCEnabled, &I::put_AGCEnabled>(
                23, "AGCEnabled", "Whether the automatic gain control works")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
