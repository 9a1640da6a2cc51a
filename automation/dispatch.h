#pragma once

#include "automation/interface_description.h"

namespace mavrin2::automation {

// Late binding made from a description: the same on every system. Arguments are converted with the
// system's coercions; optional, named and by-reference arguments and property puts follow its
// rules, and so do the failures: DISP_E_UNKNOWNNAME, DISP_E_MEMBERNOTFOUND, DISP_E_TYPEMISMATCH,
// DISP_E_OVERFLOW, DISP_E_PARAMNOTFOUND, DISP_E_PARAMNOTOPTIONAL, DISP_E_BADPARAMCOUNT,
// DISP_E_NOTACOLLECTION, DISP_E_UNKNOWNINTERFACE, and DISP_E_EXCEPTION for a member that fails
// itself, whose status and error information go to `exception`.

// The first name is a member's, the others its parameters'.
HRESULT FindNames(const InterfaceDescription& description, REFIID reserved, LPOLESTR* names,
                  UINT count, DISPID* ids);

struct Invocation {
    DISPID Member;
    WORD Flags;
    DISPPARAMS* Arguments;
    VARIANT* Result;       // may be null
    EXCEPINFO* Exception;  // may be null
    UINT* BadArgument;     // may be null
};

// `object` is a pointer to the described interface.
HRESULT InvokeMember(const InterfaceDescription& description, void* object, REFIID reserved,
                     const Invocation& call);

}  // namespace mavrin2::automation
