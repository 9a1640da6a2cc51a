#include "control/interfaces/file_info.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2FileInfo>() {
    using I = interfaces::IMavrin2FileInfo;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2FileInfo", "Format of the sound", &interfaces::ControlLibrary)
            .Reserved(1)
            .Get<&I::get_Frequency>(5, "Frequency", "Sample rate in hertz")
            .Get<&I::get_Channels>(6, "Channels", "1 or 2")
            .Reserved(8)
            .Get<&I::get_FormatString>(11, "FormatString",
                                       "Format of the file last opened or saved")
            .Reserved(18)
            .BooleanProperty<&I::get_SaveExtraInfoEnabled, &I::put_SaveExtraInfoEnabled>(
                30, "SaveExtraInfoEnabled", "Whether Save writes markers and tags")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
