#include "companions/contracts/constants.h"

#include "companions/contracts/identifiers.h"

namespace mavrin2::automation {

using contracts::ErrorConstants;
using contracts::FormatTypeConstants;

#define MEMBER(enumeration, name) \
    { #name, static_cast < std::int32_t>(enumeration::name) }

template <>
const EnumerationDescription& EnumerationOf<ErrorConstants>() {
    static const EnumerationDescription description{
        "ErrorConstants",
        contracts::ID_ErrorConstants,
        "Outcome of an operation",
        {MEMBER(ErrorConstants, NOERRORS), MEMBER(ErrorConstants, BUSY),
         MEMBER(ErrorConstants, MEMORY), MEMBER(ErrorConstants, FORMATFILE),
         MEMBER(ErrorConstants, FORMATNOTSUPPORT), MEMBER(ErrorConstants, OUTDRIVER),
         MEMBER(ErrorConstants, INPDRIVER), MEMBER(ErrorConstants, MIXERDRIVER),
         MEMBER(ErrorConstants, ACMDRIVER), MEMBER(ErrorConstants, FILEACCESS),
         MEMBER(ErrorConstants, INVALIDOPERATION), MEMBER(ErrorConstants, INVALIDPARAM),
         MEMBER(ErrorConstants, ASPIDRIVER), MEMBER(ErrorConstants, CONTROLNOTINSTALLED),
         MEMBER(ErrorConstants, INDEXOUTOFRANGE), MEMBER(ErrorConstants, STREAM),
         MEMBER(ErrorConstants, UNEXPECTED)}};
    return description;
}

template <>
const EnumerationDescription& EnumerationOf<FormatTypeConstants>() {
    static const EnumerationDescription description{
        "FormatTypeConstants",
        contracts::ID_FormatTypeConstants,
        "Kind of a sound file",
        {MEMBER(FormatTypeConstants, DEFAULT), MEMBER(FormatTypeConstants, WAV),
         MEMBER(FormatTypeConstants, MP3), MEMBER(FormatTypeConstants, VOX),
         MEMBER(FormatTypeConstants, RAW), MEMBER(FormatTypeConstants, G726),
         MEMBER(FormatTypeConstants, OGG), MEMBER(FormatTypeConstants, G721),
         MEMBER(FormatTypeConstants, G723), MEMBER(FormatTypeConstants, AVI),
         MEMBER(FormatTypeConstants, MPC), MEMBER(FormatTypeConstants, WMA),
         MEMBER(FormatTypeConstants, MP2), MEMBER(FormatTypeConstants, G729)}};
    return description;
}

#undef MEMBER

}  // namespace mavrin2::automation
