#pragma once

#include <cstdint>

#include "platform/automation.h"

namespace mavrin2::interfaces {

// The identifiers of everything that the control publishes differ in the last two bytes only. A
// number is never used twice.
constexpr GUID ControlId(std::uint16_t number) {
    return {0xf354552f,
            0x5413,
            0x4b78,
            {0xa4, 0x38, 0xc7, 0x8a, 0x84, 0x50, static_cast<std::uint8_t>(number >> 8),
             static_cast<std::uint8_t>(number & 0xff)}};
}

inline constexpr GUID LIBID_KovMAVRIN2Lib = ControlId(0x0001);

// A class and its interface share a number in their first byte, which is the class's number in the
// module's class table. Numbers without a class here are kept for classes to come.
inline constexpr CLSID CLSID_Mavrin2 = ControlId(0x0101);
inline constexpr IID IID_IMavrin2 = ControlId(0x0102);
inline constexpr IID DIID_IMavrin2Events = ControlId(0x0103);
inline constexpr CLSID CLSID_Mavrin2Channel = ControlId(0x0201);
inline constexpr IID IID_IMavrin2Channel = ControlId(0x0202);
inline constexpr CLSID CLSID_Mavrin2Colors = ControlId(0x0301);
inline constexpr IID IID_IMavrin2Colors = ControlId(0x0302);
inline constexpr CLSID CLSID_Mavrin2Device = ControlId(0x0401);
inline constexpr IID IID_IMavrin2Device = ControlId(0x0402);
inline constexpr CLSID CLSID_Mavrin2DeviceLine = ControlId(0x0501);
inline constexpr IID IID_IMavrin2DeviceLine = ControlId(0x0502);
inline constexpr CLSID CLSID_Mavrin2FileInfo = ControlId(0x0601);
inline constexpr IID IID_IMavrin2FileInfo = ControlId(0x0602);
inline constexpr CLSID CLSID_Mavrin2LameEnc = ControlId(0x0701);
inline constexpr IID IID_IMavrin2LameEnc = ControlId(0x0702);
inline constexpr CLSID CLSID_Mavrin2Markers = ControlId(0x0801);
inline constexpr IID IID_IMavrin2Markers = ControlId(0x0802);
inline constexpr CLSID CLSID_Mavrin2Position = ControlId(0x0901);
inline constexpr IID IID_IMavrin2Position = ControlId(0x0902);
inline constexpr CLSID CLSID_Mavrin2Recorder = ControlId(0x0A01);
inline constexpr IID IID_IMavrin2Recorder = ControlId(0x0A02);
inline constexpr CLSID CLSID_Mavrin2Scale = ControlId(0x0B01);
inline constexpr IID IID_IMavrin2Scale = ControlId(0x0B02);
inline constexpr CLSID CLSID_Mavrin2FileFormat = ControlId(0x0C01);
inline constexpr IID IID_IMavrin2FileFormat = ControlId(0x0C02);
inline constexpr CLSID CLSID_Mavrin2Transform = ControlId(0x0D01);
inline constexpr IID IID_IMavrin2Transform = ControlId(0x0D02);

inline constexpr GUID ID_FrequencyConstants = ControlId(0x2001);
inline constexpr GUID ID_ChannelsConstants = ControlId(0x2002);
inline constexpr GUID ID_TypeViewConstants = ControlId(0x2003);
inline constexpr GUID ID_TrimConstants = ControlId(0x2004);
inline constexpr GUID ID_MousePointerConstants = ControlId(0x2005);
inline constexpr GUID ID_PlayTypeConstants = ControlId(0x2006);
inline constexpr GUID ID_RecordTypeConstants = ControlId(0x2007);
inline constexpr GUID ID_BitrateConstants = ControlId(0x2010);
inline constexpr GUID ID_BitsPerSampleConstants = ControlId(0x2011);
inline constexpr GUID ID_RawTypeCompressConstants = ControlId(0x2012);
inline constexpr GUID ID_Mp3LameMethodConstants = ControlId(0x2013);
inline constexpr GUID ID_Mp3LameTypeStereoConstants = ControlId(0x2014);

// Dispatch identifiers were planned for all members at once, so that none changes when a member
// arrives. A future member of an existing interface is reserved in its virtual
// table, with its identifier; of the events, 10, 15 and 17 stay free.

}  // namespace mavrin2::interfaces
