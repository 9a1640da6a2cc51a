#include "control/interfaces/channel.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Channel>() {
    using I = interfaces::IMavrin2Channel;
    static const InterfaceDescription description =
        InterfaceBuilder<I>("IMavrin2Channel", "Which channels are shown and edited",
                            &interfaces::ControlLibrary)
            .Get<&I::get_Count>(1, "Count", "Channels of the document")
            .Property<&I::get_Num, &I::put_Num>(
                2, "Num", "Channel that Visible and Operation refer to, 1 ... Count")
            .Property<&I::get_Visible, &I::put_Visible>(3, "Visible",
                                                        "Whether the channel is shown; 0 hides it")
            .Property<&I::get_Operation, &I::put_Operation>(
                4, "Operation", "Whether edits change the channel; 0 protects it")
            .Build();
    return description;
}

}  // namespace mavrin2::automation
