#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "automation/variant.h"
#include "platform/automation.h"

namespace mavrin2::automation {

// The description of an interface: the only list of its members beside the virtual table. Late
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

enum class Direction { In, Out, InOut, Result };

// The value of a parameter that the caller leaves out. Without one the parameter is required.
using DefaultValue = std::variant<std::monostate, std::int32_t, double, const char*>;

struct ParameterDescription {
    const char* Name;
    ValueType Type;
    Direction Way = Direction::In;
    // An array that only goes in, but as the address of the variable that holds it.
    bool ByAddress = false;
    DefaultValue Default = {};

    bool IsOptional() const { return !std::holds_alternative<std::monostate>(Default); }
    // The default in the parameter's type. Throws StatusError when the type cannot hold it.
    Variant MakeDefault() const;
};

// Calls the member on the interface pointer. One variant per parameter, of the described type, or
// with the value's address in `byref` for Out, InOut and Result parameters and those by address.
using MemberThunk = HRESULT (*)(void* interfacePointer, VARIANT* arguments);

struct MemberDescription {
    const char* Name;
    DISPID Id;
    INVOKEKIND Kind;
    const char* Help;  // with unit and range
    std::vector<ParameterDescription> Parameters;
    MemberThunk Call = nullptr;  // null in an event interface
    int Slot = -1;               // in the virtual table, from 0 for QueryInterface
};

// The members that every automation interface inherits come first in its virtual table.
inline constexpr int kDispatchSlots = 7;

struct InterfaceDescription {
    const char* Name;
    IID Id;
    const char* Help;
    bool Events = false;  // an event interface has no virtual table
    std::vector<MemberDescription> Members;
    const LibraryDescription& (*Library)() = nullptr;

    // Of the virtual table, up to its last member that is described.
    std::size_t SlotCount() const;
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
    // How it is registered, where the module's class table does not say so itself.
    const char* VersionedProgId = nullptr;
    const char* ProgId = nullptr;
    bool Programmable = false;
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

// Keeps a slot of the virtual table for a member to come, so that those after it are where they
// will stay. `id` is the dispatch identifier that the member will have. Hosts do not see the slot.
#define MAVRIN2_RESERVED(name, id)                     \
    virtual HRESULT STDMETHODCALLTYPE Later_##name() { \
        static_assert((id) > 0);                       \
        return E_NOTIMPL;                              \
    }
#define MAVRIN2_RESERVED_PROPERTY(name, id) \
    MAVRIN2_RESERVED(get_##name, id) MAVRIN2_RESERVED(put_##name, id)

// Each described interface gives its description through a specialisation of this, declared beside
// it; enumerations likewise.
template <class Interface>
const InterfaceDescription& DescriptionOf();
template <class Enumeration>
const EnumerationDescription& EnumerationOf();

}  // namespace mavrin2::automation
