#include "control/interfaces/library.h"

#include "control/interfaces/channel.h"
#include "control/interfaces/colors.h"
#include "control/interfaces/enumerations.h"
#include "control/interfaces/events.h"
#include "control/interfaces/file_info.h"
#include "control/interfaces/identifiers.h"
#include "control/interfaces/mavrin2.h"
#include "control/interfaces/position.h"
#include "control/interfaces/scale.h"

namespace mavrin2::interfaces {

const automation::LibraryDescription& ControlLibrary() {
    using automation::DescriptionOf;
    using automation::EnumerationOf;
    static const automation::LibraryDescription library{
        "KovMAVRIN2Lib",
        LIBID_KovMAVRIN2Lib,
        2,
        0,
        "KovMavrin 2.0 Type Library",
        {&EnumerationOf<FrequencyConstants>, &EnumerationOf<ChannelsConstants>,
         &EnumerationOf<TypeViewConstants>, &EnumerationOf<FormatTypeConstants>,
         &EnumerationOf<ErrorConstants>},
        {&DescriptionOf<IMavrin2>, &DescriptionOf<IMavrin2Channel>, &DescriptionOf<IMavrin2Colors>,
         &DescriptionOf<IMavrin2FileInfo>, &DescriptionOf<IMavrin2Position>,
         &DescriptionOf<IMavrin2Scale>, &ControlEvents},
        {{"Mavrin2", CLSID_Mavrin2, "KovMavrin2 Class", &DescriptionOf<IMavrin2>, &ControlEvents,
          true},
         {"Mavrin2Channel", CLSID_Mavrin2Channel, "Mavrin2Channel Class",
          &DescriptionOf<IMavrin2Channel>},
         {"Mavrin2Colors", CLSID_Mavrin2Colors, "Mavrin2Colors Class",
          &DescriptionOf<IMavrin2Colors>},
         {"Mavrin2FileInfo", CLSID_Mavrin2FileInfo, "Mavrin2FileInfo Class",
          &DescriptionOf<IMavrin2FileInfo>},
         {"Mavrin2Position", CLSID_Mavrin2Position, "Mavrin2Position Class",
          &DescriptionOf<IMavrin2Position>},
         {"Mavrin2Scale", CLSID_Mavrin2Scale, "Mavrin2Scale Class",
          &DescriptionOf<IMavrin2Scale>}}};
    return library;
}

}  // namespace mavrin2::interfaces
