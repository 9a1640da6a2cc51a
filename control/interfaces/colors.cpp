#include "control/interfaces/colors.h"

#include "automation/interface_builder.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2Colors>() {
    using I = interfaces::IMavrin2Colors;
    static const InterfaceDescription description = [] {
        InterfaceBuilder<I> builder("IMavrin2Colors", "Colours of the picture, 0x00BBGGRR",
                                    &interfaces::ControlLibrary);
#define DESCRIBE(name, id, initial, change, help) \
    builder.Property<&I::get_##name, &I::put_##name>(id, #name, help);
        MAVRIN2_COLORS(DESCRIBE)
        MAVRIN2_HUES(DESCRIBE)
#undef DESCRIBE
        return builder.Build();
    }();
    return description;
}

}  // namespace mavrin2::automation
