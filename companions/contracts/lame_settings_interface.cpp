#include "companions/contracts/lame_settings_interface.h"

#include "companions/contracts/dusoro.h"
#include "companions/contracts/lame_members.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<contracts::ILameSettings>() {
    using I = contracts::ILameSettings;
    static const InterfaceDescription description = [] {
        InterfaceBuilder<I> builder("ILameSettings", "Settings of the MP3 encoder",
                                    &contracts::DusoroLibrary);
        return contracts::AddLameMembers(builder)
            .Get<&I::get_PresetKind>(33, "PresetKind", "1 r3mix, 2 standard, 3 extreme, 4 insane")
            .Build();
    }();
    return description;
}

}  // namespace mavrin2::automation
