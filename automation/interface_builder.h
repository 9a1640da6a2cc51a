#pragma once

#include <array>
#include <bit>
#include <cstring>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "automation/interface_description.h"
#include "automation/interface_id.h"

namespace mavrin2::automation {

// One parameter as written in a description; its type is deduced from the member.
struct Parameter {
    const char* Name;
    Direction Way = Direction::In;
    VARTYPE Explicit = VT_EMPTY;
    bool Optional = false;
    std::int32_t DefaultValue = 0;

    // A truth value: in C++ it is a 16-bit integer like any other.
    Parameter Boolean() const { return With(VT_BOOL); }
    // An array, whose element type C++ does not show.
    Parameter ArrayOf(VARTYPE element) const {
        return With(static_cast<VARTYPE>(VT_ARRAY | element));
    }
    Parameter Default(std::int32_t value) const {
        Parameter copy = *this;
        copy.Optional = true;
        copy.DefaultValue = value;
        return copy;
    }

private:
    Parameter With(VARTYPE type) const {
        Parameter copy = *this;
        copy.Explicit = type;
        return copy;
    }
};

inline Parameter In(const char* name) {
    return {name};
}
inline Parameter Out(const char* name) {
    return {name, Direction::Out};
}
inline Parameter Result(const char* name) {
    return {name, Direction::Result};
}

namespace detail {

template <class T>
concept DescribedInterface = std::is_base_of_v<IDispatch, T> && !std::is_same_v<IDispatch, T>;

// The automation type of a C++ type that stands by value.
template <class T>
ValueType TypeOf() {
    if constexpr (std::is_enum_v<T>) {
        static_assert(sizeof(T) == 4);
        return {VT_I4, &EnumerationOf<T>};
    } else if constexpr (std::is_pointer_v<T> && DescribedInterface<std::remove_pointer_t<T>>) {
        return {VT_DISPATCH, nullptr, &DescriptionOf<std::remove_pointer_t<T>>};
    } else if constexpr (std::is_same_v<T, IDispatch*>) {
        return {VT_DISPATCH};
    } else if constexpr (std::is_same_v<T, IUnknown*>) {
        return {VT_UNKNOWN};
    } else if constexpr (std::is_same_v<T, BSTR>) {
        return {VT_BSTR};
    } else if constexpr (std::is_same_v<T, VARIANT>) {
        return {VT_VARIANT};
    } else if constexpr (std::is_same_v<T, FLOAT>) {
        return {VT_R4};
    } else if constexpr (std::is_same_v<T, DOUBLE>) {
        return {VT_R8};
    } else if constexpr (std::is_same_v<T, SAFEARRAY*>) {
        return {VT_ARRAY};  // the description names the element
    } else if constexpr (std::is_integral_v<T> && sizeof(T) == 2) {
        return {static_cast<VARTYPE>(std::is_signed_v<T> ? VT_I2 : VT_UI2)};
    } else {
        static_assert(std::is_integral_v<T> && sizeof(T) == 4, "no automation type");
        return {static_cast<VARTYPE>(std::is_signed_v<T> ? VT_I4 : VT_UI4)};
    }
}

// Whether a parameter of this C++ type is the address of a value rather than a value.
template <class T>
constexpr bool IsAddress =
    std::is_pointer_v<T> && !std::is_same_v<T, BSTR> && !std::is_same_v<T, SAFEARRAY*> &&
    !std::is_base_of_v<IUnknown, std::remove_pointer_t<T>>;

template <class T>
ValueType ParameterType() {
    if constexpr (IsAddress<T>)
        return TypeOf<std::remove_pointer_t<T>>();
    else
        return TypeOf<T>();
}

template <class T>
T Extract(VARIANT& v) {
    if constexpr (IsAddress<T>) {
        return static_cast<T>(v.byref);
    } else if constexpr (std::is_enum_v<T>) {
        return static_cast<T>(v.lVal);
    } else if constexpr (std::is_same_v<T, BSTR>) {
        return v.bstrVal;
    } else if constexpr (std::is_same_v<T, VARIANT>) {
        return v;
    } else if constexpr (std::is_same_v<T, FLOAT>) {
        return v.fltVal;
    } else if constexpr (std::is_same_v<T, DOUBLE>) {
        return v.dblVal;
    } else if constexpr (std::is_same_v<T, SAFEARRAY*>) {
        return v.parray;
    } else if constexpr (std::is_pointer_v<T>) {
        // Already asked for this very interface by the argument's conversion.
        return static_cast<T>(static_cast<void*>(v.punkVal));
    } else if constexpr (sizeof(T) == 2) {
        return static_cast<T>(v.iVal);
    } else {
        return static_cast<T>(v.lVal);
    }
}

template <class Member>
struct MemberTraits;
template <class Owner, class... Arguments>
struct MemberTraits<HRESULT (STDMETHODCALLTYPE Owner::*)(Arguments...)> {
    static constexpr std::size_t Arity = sizeof...(Arguments);

    static std::array<ValueType, Arity> Types() { return {ParameterType<Arguments>()...}; }
    static constexpr std::array<bool, Arity> Addresses() { return {IsAddress<Arguments>...}; }

    template <class Interface, auto Function>
    static HRESULT Call(void* object, VARIANT* arguments) {
        return [&]<std::size_t... I>(std::index_sequence<I...>) {
            return (static_cast<Interface*>(object)->*Function)(
                Extract<Arguments>(arguments[I])...);
        }
        (std::index_sequence_for<Arguments...>());
    }
};

// The slot a pointer to a virtual member names. Both compilers of this project follow the Itanium
// ABI, where such a pointer is 1 + the byte offset into the virtual table.
template <class Member>
int SlotOf(Member member) {
    std::uintptr_t words[2] = {};
    static_assert(sizeof member == sizeof words);
    std::memcpy(words, &member, sizeof member);
    return static_cast<int>((words[0] - 1) / sizeof(void*));
}

}  // namespace detail

// Collects members in the order of the virtual table and holds them against it and against the
// plan: a description that disagrees with either throws std::logic_error when it is first used.
class DescriptionBuilder {
public:
    DescriptionBuilder(InterfaceDescription description, MemberPlan plan)
        : description_(std::move(description)), plan_(plan) {}

    void Add(MemberDescription member);
    InterfaceDescription Take() { return std::move(description_); }

private:
    InterfaceDescription description_;
    MemberPlan plan_;
    std::size_t planned_ = 0;
};

// Throws std::logic_error when names and directions do not fit the member's own parameters.
void CheckParameterList(const char* member, std::span<const Parameter> parameters,
                        std::span<const bool> addresses);

template <class Interface>
class InterfaceBuilder {
public:
    InterfaceBuilder(const char* name, const char* help, MemberPlan plan,
                     const LibraryDescription& (*library)() = nullptr)
        : builder_({name, Interface::Id, help, false, {}, library}, plan) {}

    template <auto Function>
    InterfaceBuilder& Method(const char* name, const char* help, auto... parameters) {
        return Add<Function>(name, help, INVOKE_FUNC, {Parameter(parameters)...});
    }

    // A property that is read; `indices` name what stands before the value.
    template <auto Function>
    InterfaceBuilder& Get(const char* name, const char* help, auto... indices) {
        return Add<Function>(name, help, INVOKE_PROPERTYGET,
                             {Parameter(indices)..., Result("Value")});
    }
    template <auto Function>
    InterfaceBuilder& GetBoolean(const char* name, const char* help, auto... indices) {
        return Add<Function>(name, help, INVOKE_PROPERTYGET,
                             {Parameter(indices)..., Result("Value").Boolean()});
    }
    template <auto Function>
    InterfaceBuilder& Put(const char* name, const char* help, auto... indices) {
        return Add<Function>(name, help, INVOKE_PROPERTYPUT, {Parameter(indices)..., In("Value")});
    }
    template <auto Function>
    InterfaceBuilder& PutBoolean(const char* name, const char* help, auto... indices) {
        return Add<Function>(name, help, INVOKE_PROPERTYPUT,
                             {Parameter(indices)..., In("Value").Boolean()});
    }
    template <auto Function>
    InterfaceBuilder& PutReference(const char* name, const char* help, auto... indices) {
        return Add<Function>(name, help, INVOKE_PROPERTYPUTREF,
                             {Parameter(indices)..., In("Value")});
    }

    InterfaceDescription Build() { return builder_.Take(); }

private:
    template <auto Function>
    InterfaceBuilder& Add(const char* name, const char* help, INVOKEKIND kind,
                          std::vector<Parameter> parameters) {
        using Traits = detail::MemberTraits<decltype(Function)>;
        MemberDescription member{name, DISPID_UNKNOWN, kind, help, {}, nullptr, -1};
        member.Call = &Traits::template Call<Interface, Function>;
        member.Slot = detail::SlotOf(Function);
        const auto types = Traits::Types();
        const auto addresses = Traits::Addresses();
        CheckParameterList(name, parameters, addresses);
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            ValueType type = types[i];
            if (parameters[i].Explicit != VT_EMPTY) type.Type = parameters[i].Explicit;
            member.Parameters.push_back({parameters[i].Name, type, parameters[i].Way,
                                         parameters[i].Optional, parameters[i].DefaultValue});
        }
        builder_.Add(std::move(member));
        return *this;
    }

    DescriptionBuilder builder_;
};

// An event interface: members that a source calls through IDispatch, with plain values.
class EventsBuilder {
public:
    struct Argument {
        const char* Name;
        VARTYPE Type;
    };

    EventsBuilder(const char* name, const IID& id, const char* help, MemberPlan plan,
                  const LibraryDescription& (*library)() = nullptr)
        : builder_({name, id, help, true, {}, library}, plan) {}

    EventsBuilder& Event(const char* name, const char* help,
                         std::initializer_list<Argument> arguments = {});
    InterfaceDescription Build() { return builder_.Take(); }

private:
    DescriptionBuilder builder_;
};

}  // namespace mavrin2::automation
