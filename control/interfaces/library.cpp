#include "control/interfaces/library.h"

#include "control/interfaces/channel.h"
#include "control/interfaces/colors.h"
#include "control/interfaces/device.h"
#include "control/interfaces/device_line.h"
#include "control/interfaces/enumerations.h"
#include "control/interfaces/events.h"
#include "control/interfaces/file_format.h"
#include "control/interfaces/file_info.h"
#include "control/interfaces/identifiers.h"
#include "control/interfaces/lame_enc.h"
#include "control/interfaces/markers.h"
#include "control/interfaces/mavrin2.h"
#include "control/interfaces/position.h"
#include "control/interfaces/recorder.h"
#include "control/interfaces/scale.h"
#include "control/interfaces/transform.h"

namespace mavrin2::interfaces {

namespace {

using automation::ClassDescription;
using automation::DescriptionOf;
using automation::EnumerationOf;

// A class that is named after its interface.
#define SUB_OBJECT(name, programmable)                                                   \
    ClassDescription {                                                                   \
        .Name = #name, .Id = CLSID_##name, .Help = #name " Class",                       \
        .Default = &DescriptionOf<I##name>, .VersionedProgId = "KovMavrin2." #name ".1", \
        .ProgId = "KovMavrin2." #name, .Programmable = (programmable)                    \
    }

// In the published order.
const std::vector<ClassDescription>& Classes() {
    static const std::vector<ClassDescription> classes{
        {"Mavrin2", CLSID_Mavrin2, "KovMavrin2 Class", &DescriptionOf<IMavrin2>, &ControlEvents,
         true, "KovMavrin2.Mavrin2.2", "KovMavrin2.Mavrin2", true},
        SUB_OBJECT(Mavrin2Channel, false),
        SUB_OBJECT(Mavrin2Colors, false),
        SUB_OBJECT(Mavrin2Device, false),
        SUB_OBJECT(Mavrin2DeviceLine, false),
        SUB_OBJECT(Mavrin2FileInfo, false),
        SUB_OBJECT(Mavrin2LameEnc, false),
        SUB_OBJECT(Mavrin2Markers, false),
        SUB_OBJECT(Mavrin2Position, false),
        SUB_OBJECT(Mavrin2Recorder, false),
        SUB_OBJECT(Mavrin2Scale, false),
        {.Name = "Mavrin2FileFormat",
         .Id = CLSID_Mavrin2FileFormat,
         .Help = "Mavrin2FileFormat Class",
         .Default = &DescriptionOf<IMavrin2FileFormat>,
         // One letter short, as it has always been registered.
         .VersionedProgId = "KovMavrin2.Mavrin2FileForma.1",
         .ProgId = "KovMavrin2.Mavrin2FileFormat",
         .Programmable = true},
        SUB_OBJECT(Mavrin2Transform, true),
    };
    return classes;
}

#undef SUB_OBJECT

std::vector<const automation::InterfaceDescription& (*)()> Interfaces() {
    std::vector<const automation::InterfaceDescription& (*)()> interfaces;
    for (const ClassDescription& one : Classes())
        interfaces.push_back(one.Default);
    interfaces.push_back(&ControlEvents);
    return interfaces;
}

}  // namespace

const automation::LibraryDescription& ControlLibrary() {
    static const automation::LibraryDescription library{
        "KovMAVRIN2Lib",
        LIBID_KovMAVRIN2Lib,
        2,
        0,
        "KovMavrin 2.0 Type Library",
        {&EnumerationOf<FrequencyConstants>, &EnumerationOf<ChannelsConstants>,
         &EnumerationOf<TypeViewConstants>, &EnumerationOf<TrimConstants>,
         &EnumerationOf<MousePointerConstants>, &EnumerationOf<PlayTypeConstants>,
         &EnumerationOf<RecordTypeConstants>, &EnumerationOf<BitrateConstants>,
         &EnumerationOf<BitsPerSampleConstants>, &EnumerationOf<RawTypeCompressConstants>,
         &EnumerationOf<Mp3LameMethodConstants>, &EnumerationOf<Mp3LameTypeStereoConstants>,
         &EnumerationOf<FormatTypeConstants>, &EnumerationOf<ErrorConstants>},
        Interfaces(),
        Classes()};
    return library;
}

}  // namespace mavrin2::interfaces
