#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation.h"

namespace mavrin2::automation {

// What an interface says of itself: the one list, beside the virtual table, of its members. Late
// binding, type information and the type library are made from it. Names and help are ASCII.

struct EnumerationDescription {
    struct Member {
        const char* Name;
        std::int32_t Value;
    };
    const char* Name;
    GUID Id;
    const char* Help;
    std::vector<Member> Members;
};

struct InterfaceDescription;
struct LibraryDescription;

// The automation type of a value.
struct ValueType {
    VARTYPE Type =
        VT_EMPTY;  // without VT_BYREF; VT_I4 for an enumeration, VT_DISPATCH for an object
    const EnumerationDescription& (*Enumeration)() = nullptr;
    const InterfaceDescription& (*Interface)() = nullptr;
};

enum class Direction { In, Out, Result };

struct ParameterDescription {
    const char* Name;
    ValueType Type;
    Direction Way = Direction::In;
    bool Optional = false;
    std::int32_t Default = 0;  // of an optional parameter; converted to its type
};

// Calls the member on the interface pointer. One variant a parameter, each of the described type;
// those of Out and Result parameters hold the address in `byref`.
using MemberThunk = HRESULT (*)(void* interfacePointer, VARIANT* arguments);

struct MemberDescription {
    const char* Name;
    DISPID Id;
    INVOKEKIND Kind;
    const char* Help;  // with unit and range
    std::vector<ParameterDescription> Parameters;
    MemberThunk Call = nullptr;  // none in an event interface
    int Slot = -1;               // in the virtual table, from 0 for QueryInterface
};

struct InterfaceDescription {
    const char* Name;
    IID Id;
    const char* Help;
    bool Events = false;  // an event interface has no virtual table of its own
    std::vector<MemberDescription> Members;
    const LibraryDescription& (*Library)() = nullptr;

    // The first member of that name, whatever its kind (case is ignored, as the system does).
    const MemberDescription* Find(std::string_view name) const;
    // The member of that identifier that is one of the kinds (a sum of INVOKEKIND).
    const MemberDescription* Find(DISPID id, int kinds) const;
};

struct ClassDescription {
    const char* Name;
    CLSID Id;
    const char* Help;
    const InterfaceDescription& (*Default)();
    const InterfaceDescription& (*Source)() = nullptr;  // the events it raises
    bool Control = false;
};

struct LibraryDescription {
    const char* Name;
    GUID Id;
    WORD Major = 0, Minor = 0;
    const char* Help;
    std::vector<const EnumerationDescription& (*)()> Enumerations;
    std::vector<const InterfaceDescription& (*)()> Interfaces;
    std::vector<ClassDescription> Classes;
};

// The place of each member of an interface and its dispatch identifier, fixed for all versions to
// come: what is described so far is a selection of it, in its order.
struct PlannedMember {
    const char* Name;
    DISPID Id;
};
using MemberPlan = std::span<const PlannedMember>;

// Each described interface gives its description through a specialisation of this, declared beside
// it; enumerations likewise.
template <class Interface>
const InterfaceDescription& DescriptionOf();
template <class Enumeration>
const EnumerationDescription& EnumerationOf();

}  // namespace mavrin2::automation
