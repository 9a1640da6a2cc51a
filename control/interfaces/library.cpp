#include "control/interfaces/library.h"

#include "control/interfaces/enumerations.h"
#include "control/interfaces/events.h"
#include "control/interfaces/file_info.h"
#include "control/interfaces/identifiers.h"
#include "control/interfaces/mavrin2.h"
#include "control/interfaces/position.h"

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
         &EnumerationOf<FormatTypeConstants>, &EnumerationOf<ErrorConstants>},
        {&DescriptionOf<IMavrin2>, &DescriptionOf<IMavrin2FileInfo>,
         &DescriptionOf<IMavrin2Position>, &ControlEvents},
        {{"Mavrin2", CLSID_Mavrin2, "KovMavrin2 Class", &DescriptionOf<IMavrin2>, &ControlEvents,
          true},
         {"Mavrin2FileInfo", CLSID_Mavrin2FileInfo, "Mavrin2FileInfo Class",
          &DescriptionOf<IMavrin2FileInfo>},
         {"Mavrin2Position", CLSID_Mavrin2Position, "Mavrin2Position Class",
          &DescriptionOf<IMavrin2Position>}}};
    return library;
}

}  // namespace mavrin2::interfaces
