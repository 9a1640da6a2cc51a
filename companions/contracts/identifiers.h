#pragma once

#include <cstdint>

#include "platform/automation.h"

namespace mavrin2::contracts {

// The identifiers of everything that the companions publish differ in the last two bytes only. A
// number is never used twice.
constexpr GUID ContractId(std::uint16_t number) {
    return {0xc230391d,
            0x90e6,
            0x4e9f,
            {0x86, 0x72, 0x7e, 0xf5, 0x0d, 0x4d, static_cast<std::uint8_t>(number >> 8),
             static_cast<std::uint8_t>(number & 0xff)}};
}

inline constexpr CLSID CLSID_KovDusoro2 = ContractId(0x0101);
inline constexpr IID IID_IDusoro2 = ContractId(0x0102);
inline constexpr GUID LIBID_KovDusoro2 = ContractId(0x0103);
inline constexpr CLSID CLSID_KovDusoroLame = ContractId(0x0104);
inline constexpr IID IID_ILameSettings = ContractId(0x0105);
inline constexpr CLSID CLSID_KovDusoroInspector = ContractId(0x0106);
inline constexpr IID IID_ISoundInspector = ContractId(0x0107);

inline constexpr CLSID CLSID_KovVelto = ContractId(0x0201);
inline constexpr IID IID_IVelto2 = ContractId(0x0202);
inline constexpr IID DIID_IVelto2Events = ContractId(0x0203);
inline constexpr GUID LIBID_KovVelto = ContractId(0x0204);

inline constexpr CLSID CLSID_KovRimbal2 = ContractId(0x0301);
inline constexpr IID IID_IRimbal2 = ContractId(0x0302);
inline constexpr IID DIID_IRimbal2Events = ContractId(0x0303);
inline constexpr GUID LIBID_KovRimbal2 = ContractId(0x0304);

inline constexpr CLSID CLSID_KovKestrin = ContractId(0x0401);
inline constexpr IID IID_IKestrin2 = ContractId(0x0402);
inline constexpr IID DIID_IKestrin2Events = ContractId(0x0403);
inline constexpr GUID LIBID_KovKestrin = ContractId(0x0404);

inline constexpr CLSID CLSID_KovPindle = ContractId(0x0501);
inline constexpr IID IID_IPindleCD2 = ContractId(0x0502);
inline constexpr IID DIID_IPindleCD2Events = ContractId(0x0503);
inline constexpr GUID LIBID_KovPindle = ContractId(0x0504);

inline constexpr CLSID CLSID_KovOntiva = ContractId(0x0601);
inline constexpr IID IID_IOntiva = ContractId(0x0602);
inline constexpr GUID LIBID_KovOntiva = ContractId(0x0604);

inline constexpr GUID ID_ErrorConstants = ContractId(0x0801);
inline constexpr GUID ID_FormatTypeConstants = ContractId(0x0802);

}  // namespace mavrin2::contracts
