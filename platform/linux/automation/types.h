#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

// What the runtime shares with every module of a process; everything else in it is hidden.
#define MAVRIN2_AUTOMATION_API __attribute__((visibility("default")))

// The calling convention matters only on 32-bit Windows, but every method must state it.
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE
#define STDMETHODIMP HRESULT STDMETHODCALLTYPE
#define STDMETHODIMP_(type) type STDMETHODCALLTYPE
#define STDAPI extern "C" HRESULT STDAPICALLTYPE
#define STDAPI_(type) extern "C" type STDAPICALLTYPE

// Widths are those of the contract: what is a `long` there has 32 bits.
using CHAR = char;
using BYTE = std::uint8_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using INT = int;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using FLOAT = float;
using DOUBLE = double;
using BOOL = int;
using WINBOOL = BOOL;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using PVOID = void*;
using LPVOID = void*;
using LPCSTR = const char*;

// Other libraries define these two as macros as well.
#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif

using HRESULT = std::int32_t;
using SCODE = std::int32_t;
using LCID = std::uint32_t;
using DISPID = std::int32_t;
using MEMBERID = DISPID;
using HREFTYPE = DWORD;

struct HINSTANCE__;
using HINSTANCE = HINSTANCE__*;

using OLECHAR = char16_t;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;
#define OLESTR(text) u##text

// Characters after a 32-bit length in bytes, terminated by a zero that the length leaves out. A
// null BSTR is the empty string. Made and freed by the Sys… functions only.
using BSTR = OLECHAR*;

using VARIANT_BOOL = short;
inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

using VARTYPE = unsigned short;
using DATE = double;  // days since 1899-12-30, the fraction is the time of day

// Money: ten-thousandths in 64 bits.
union CY {
    __extension__ struct {
        ULONG Lo;
        LONG Hi;
    };
    LONGLONG int64;
};

// A 96-bit integer divided by a power of ten. Laid out only because a variant has room for one.
struct DECIMAL {
    USHORT wReserved;
    __extension__ union {
        __extension__ struct {
            BYTE scale;
            BYTE sign;
        };
        USHORT signscale;
    };
    ULONG Hi32;
    __extension__ union {
        __extension__ struct {
            ULONG Lo32;
            ULONG Mid32;
        };
        ULONGLONG Lo64;
    };
};

struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using LPGUID = GUID*;
using LPIID = IID*;
using LPCLSID = CLSID*;
#define REFGUID const GUID&
#define REFIID const IID&
#define REFCLSID const CLSID&

inline int IsEqualGUID(REFGUID one, REFGUID other) {
    return std::memcmp(&one, &other, sizeof(GUID)) == 0;
}
inline int IsEqualIID(REFIID one, REFIID other) {
    return IsEqualGUID(one, other);
}
inline int IsEqualCLSID(REFCLSID one, REFCLSID other) {
    return IsEqualGUID(one, other);
}
inline bool operator==(REFGUID one, REFGUID other) {
    return IsEqualGUID(one, other) != 0;
}
inline bool operator!=(REFGUID one, REFGUID other) {
    return !(one == other);
}

inline constexpr LCID LOCALE_SYSTEM_DEFAULT = 0x0800;
inline constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
