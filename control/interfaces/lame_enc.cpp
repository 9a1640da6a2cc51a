#include "control/interfaces/lame_enc.h"

#include "companions/contracts/lame_members.h"
#include "control/interfaces/library.h"

namespace mavrin2::automation {

template <>
const InterfaceDescription& DescriptionOf<interfaces::IMavrin2LameEnc>() {
    static const InterfaceDescription description = [] {
        InterfaceBuilder<interfaces::IMavrin2LameEnc> builder(
            "IMavrin2LameEnc", "Settings of the MP3 encoder", &interfaces::ControlLibrary);
        return contracts::AddLameMembers(builder).Build();
    }();
    return description;
}

}  // namespace mavrin2::automation
