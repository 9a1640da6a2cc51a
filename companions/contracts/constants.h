#pragma once

#include <cstdint>

#include "automation/interface_description.h"

namespace mavrin2::contracts {

// Error codes of companions and the control. The control turns them into a failing status and a
// description (`control/server/error_report.h`).
enum class ErrorConstants : std::int32_t {
    NOERRORS = 0,
    BUSY = -10,
    MEMORY = -11,
    FORMATFILE = -12,
    FORMATNOTSUPPORT = -13,
    OUTDRIVER = -14,
    INPDRIVER = -15,
    MIXERDRIVER = -16,
    ACMDRIVER = -17,
    FILEACCESS = -18,
    INVALIDOPERATION = -19,
    INVALIDPARAM = -20,
    ASPIDRIVER = -21,
    CONTROLNOTINSTALLED = -22,
    INDEXOUTOFRANGE = -23,
    STREAM = -24,
    UNEXPECTED = -40
};

// The kind of a sound file; DEFAULT decides by its name or content.
enum class FormatTypeConstants : std::int32_t {
    DEFAULT = 0,
    WAV = 1,
    MP3 = 2,
    VOX = 3,
    RAW = 4,
    G726 = 5,
    OGG = 6,
    G721 = 7,
    G723 = 8,
    AVI = 9,
    MPC = 10,
    WMA = 11,
    MP2 = 12,
    G729 = 13
};

}  // namespace mavrin2::contracts

namespace mavrin2::automation {
template <>
const EnumerationDescription& EnumerationOf<contracts::ErrorConstants>();
template <>
const EnumerationDescription& EnumerationOf<contracts::FormatTypeConstants>();
}  // namespace mavrin2::automation
