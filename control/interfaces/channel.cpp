#include "control/interfaces/channel.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"
#include "control/interfaces/member_plan.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Channel>() {
    using I = interfaces::IMavrin2Channel;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Channel", "Which channels are shown and edited",
                            interfaces::plan::Channel, &interfaces::ControlLibrary)
            .Get<&I::get_Count>("Count", "Channels of the document")
            .Get<&I::get_Num>("Num", "The channel that the flags are of")
            .Put<&I::put_Num>("Num", "1 ... Count")
            .Get<&I::get_Visible>("Visible", "Whether the channel is shown")
            .Put<&I::put_Visible>("Visible", "0 hides it")
            .Get<&I::get_Operation>("Operation", "Whether edits act on the channel")
            .Put<&I::put_Operation>("Operation", "0 leaves it alone")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
