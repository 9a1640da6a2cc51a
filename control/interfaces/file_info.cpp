#include "control/interfaces/file_info.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"
#include "control/interfaces/member_plan.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2FileInfo>() {
    using I = interfaces::IMavrin2FileInfo;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2FileInfo", "Format of the sound", interfaces::plan::FileInfo,
                            &interfaces::ControlLibrary)
            .Get<&I::get_Frequency>("Frequency", "Sample rate in hertz")
            .Get<&I::get_Channels>("Channels", "1 or 2")
            .Get<&I::get_FormatString>("FormatString", "Format of the file last opened or saved")
            .GetBoolean<&I::get_SaveExtraInfoEnabled>("SaveExtraInfoEnabled",
                                                      "Whether Save writes markers and tags")
            .PutBoolean<&I::put_SaveExtraInfoEnabled>("SaveExtraInfoEnabled", "Kept as given")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
