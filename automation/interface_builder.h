#pragma once

#include <concepts>
#include <cstring>
#include <type_traits>
#include <utility>

#include "automation/interface_description.h"
#include "automation/interface_id.h"

namespace mavrin2::automation {

namespace detail {

enum class Form { Plain, Boolean, Array };
struct NoDefault {};

template <class T>
concept DescribedInterface = std::is_base_of_v<IDispatch, T> && !std::is_same_v<IDispatch, T>;

template <class T>
constexpr bool IsObject =
    std::is_pointer_v<T>&& std::is_base_of_v<IUnknown, std::remove_pointer_t<T>>;

}  // namespace detail

// One parameter as written in a description. Its type is deduced from the member; a description
// that does not fit the member does not compile.
template <Direction Way, detail::Form Form = detail::Form::Plain,
          class DefaultType = detail::NoDefault>
struct Parameter {
    const char* Name;
    VARTYPE Element = VT_EMPTY;
    DefaultType DefaultValue = {};

    // A boolean: in C++ it is a 16-bit integer like any other.
    constexpr auto Boolean() const {
        return Parameter<Way, detail::Form::Boolean, DefaultType>{Name, Element, DefaultValue};
    }
    // An array, whose element type C++ does not show.
    constexpr auto ArrayOf(VARTYPE element) const {
        return Parameter<Way, detail::Form::Array, DefaultType>{Name, element, DefaultValue};
    }
    // A number, a boolean, a text or a member of the parameter's enumeration.
    template <class Value>
    constexpr auto Default(Value value) const {
        return Parameter<Way, Form, Value>{Name, Element, value};
    }
};

constexpr Parameter<Direction::In> In(const char* name) {
    return {name};
}
constexpr Parameter<Direction::Out> Out(const char* name) {
    return {name};
}
// Given by the caller and changed by the member.
constexpr Parameter<Direction::InOut> InOut(const char* name) {
    return {name};
}
constexpr Parameter<Direction::Result> Result(const char* name) {
    return {name};
}

namespace detail {

// The automation type of a C++ type that is passed by value.
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
constexpr bool IsAddress = std::is_pointer_v<T> && !std::is_same_v<T, BSTR> &&
                           !std::is_same_v<T, SAFEARRAY*> && !IsObject<T>;

template <class T>
using ValueOf = std::conditional_t<IsAddress<T>, std::remove_pointer_t<T>, T>;

template <class T, Form F, class Default>
constexpr bool DefaultFits() {
    if constexpr (std::is_same_v<Default, NoDefault>) return true;
    if constexpr (F == Form::Array || IsAddress<T>) return false;
    if constexpr (F == Form::Boolean || std::is_same_v<Default, bool>)
        return F == Form::Boolean && std::is_same_v<Default, bool>;
    if constexpr (std::is_enum_v<Default>) return std::is_same_v<T, Default>;
    if constexpr (std::is_convertible_v<Default, const char*>) return std::is_same_v<T, BSTR>;
    if constexpr (std::is_floating_point_v<Default>) return std::is_floating_point_v<T>;
    return std::is_integral_v<Default> && std::is_arithmetic_v<T>;
}

template <class T, class P>
struct FitsParameter : std::false_type {};
template <class T, Direction Way, Form F, class Default>
struct FitsParameter<T, Parameter<Way, F, Default>> {
    using Value = ValueOf<T>;
    static constexpr bool kArray = std::is_same_v<Value, SAFEARRAY*>;
    // Only an array may go in by its address.
    static constexpr bool kWayFits = Way == Direction::In ? !IsAddress<T> || kArray : IsAddress<T>;
    // The caller's variable would hold an object of another interface.
    static constexpr bool kChangeable = Way != Direction::InOut || !IsObject<Value>;
    static constexpr bool value =
        kWayFits && kChangeable && (F == Form::Array) == kArray &&
        (F != Form::Boolean || std::is_same_v<Value, VARIANT_BOOL>)&&(
            Way == Direction::In ||
            std::is_same_v<Default, NoDefault>)&&DefaultFits<T, F, Default>();
};

template <class P>
constexpr bool IsResult = false;
template <Form F, class Default>
inline constexpr bool IsResult<Parameter<Direction::Result, F, Default>> = true;

// The result comes last.
template <class... Ps>
constexpr bool ResultIsLast() {
    const bool results[] = {IsResult<Ps>..., false};
    for (std::size_t i = 0; i + 1 < sizeof...(Ps); ++i)
        if (results[i]) return false;
    return true;
}

template <class T, Direction Way, Form F, class Default>
ParameterDescription Describe(const Parameter<Way, F, Default>& parameter) {
    ValueType type = TypeOf<ValueOf<T>>();
    if constexpr (F == Form::Boolean) type.Type = VT_BOOL;
    if constexpr (F == Form::Array) type.Type = static_cast<VARTYPE>(VT_ARRAY | parameter.Element);
    automation::DefaultValue value;
    if constexpr (std::is_same_v<Default, bool>)
        value = static_cast<std::int32_t>(parameter.DefaultValue ? VARIANT_TRUE : VARIANT_FALSE);
    else if constexpr (std::is_enum_v<Default> || std::is_integral_v<Default>)
        value = static_cast<std::int32_t>(parameter.DefaultValue);
    else if constexpr (!std::is_same_v<Default, NoDefault>)
        value = parameter.DefaultValue;
    return {parameter.Name, type, Way, Way == Direction::In && IsAddress<T>, value};
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
    template <class... Ps>
    static constexpr bool Fits() {
        if constexpr (sizeof...(Ps) != sizeof...(Arguments))
            return false;
        else
            return (FitsParameter<Arguments, Ps>::value && ...) && ResultIsLast<Ps...>();
    }

    template <class... Ps>
    static std::vector<ParameterDescription> Describe(const Ps&... parameters) {
        return {detail::Describe<Arguments>(parameters)...};
    }

    template <class Interface, auto Function>
    static HRESULT Call(void* object, VARIANT* arguments) {
        return [&]<std::size_t... I>(std::index_sequence<I...>) {
            return (static_cast<Interface*>(object)->*Function)(
                Extract<Arguments>(arguments[I])...);
        }
        (std::index_sequence_for<Arguments...>());
    }
};

// The slot that a pointer to a virtual member names. Both compilers of this project follow the
// Itanium ABI, where such a pointer is 1 + the byte offset into the virtual table.
template <class Member>
int SlotOf(Member member) {
    std::uintptr_t words[2] = {};
    static_assert(sizeof member == sizeof words);
    std::memcpy(words, &member, sizeof member);
    return static_cast<int>((words[0] - 1) / sizeof(void*));
}

}  // namespace detail

// Whether parameters described like this can be passed to the member.
template <auto Function, class... Parameters>
concept Describes = detail::MemberTraits<decltype(Function)>::template Fits<Parameters...>();

// Collects members in the order of the virtual table. Throws std::logic_error, at first use, for a
// description that disagrees with the table, that gives two names one identifier or one name two,
// or that has a default which does not fit its parameter.
class DescriptionBuilder {
public:
    explicit DescriptionBuilder(InterfaceDescription description)
        : description_(std::move(description)) {}

    void Add(MemberDescription member);
    void Reserve(int slots) { slot_ += slots; }
    InterfaceDescription Take() { return std::move(description_); }

private:
    InterfaceDescription description_;
    int slot_ = kDispatchSlots;
};

template <class Interface>
class InterfaceBuilder {
public:
    InterfaceBuilder(const char* name, const char* help,
                     const LibraryDescription& (*library)() = nullptr)
        : builder_({name, Interface::Id, help, false, {}, library}) {}

    template <auto Function, class... Ps>
    requires Describes<Function, Ps...> InterfaceBuilder& Method(DISPID id, const char* name,
                                                                 const char* help,
                                                                 Ps... parameters) {
        return Add<Function>(id, name, help, INVOKE_FUNC, parameters...);
    }

    // A property that is read; `indices` name what comes before the value.
    template <auto Function, class... Ps>
    InterfaceBuilder& Get(DISPID id, const char* name, const char* help, Ps... indices) {
        return Add<Function>(id, name, help, INVOKE_PROPERTYGET, indices..., Result("Value"));
    }
    template <auto Function, class... Ps>
    InterfaceBuilder& GetBoolean(DISPID id, const char* name, const char* help, Ps... indices) {
        return Add<Function>(id, name, help, INVOKE_PROPERTYGET, indices...,
                             Result("Value").Boolean());
    }
    template <auto Function, class... Ps>
    InterfaceBuilder& Put(DISPID id, const char* name, const char* help, Ps... indices) {
        return Add<Function>(id, name, help, INVOKE_PROPERTYPUT, indices..., In("Value"));
    }
    template <auto Function, class... Ps>
    InterfaceBuilder& PutReference(DISPID id, const char* name, const char* help, Ps... indices) {
        return Add<Function>(id, name, help, INVOKE_PROPERTYPUTREF, indices..., In("Value"));
    }
    template <auto Function, class... Ps>
    InterfaceBuilder& PutBoolean(DISPID id, const char* name, const char* help, Ps... indices) {
        return Add<Function>(id, name, help, INVOKE_PROPERTYPUT, indices..., In("Value").Boolean());
    }
    // A property that is read and written.
    template <auto Getter, auto Putter, class... Ps>
    InterfaceBuilder& Property(DISPID id, const char* name, const char* help, Ps... indices) {
        return Get<Getter>(id, name, help, indices...)
            .template Put<Putter>(id, name, help, indices...);
    }
    template <auto Getter, auto Putter, class... Ps>
    InterfaceBuilder& BooleanProperty(DISPID id, const char* name, const char* help,
                                      Ps... indices) {
        return GetBoolean<Getter>(id, name, help, indices...)
            .template PutBoolean<Putter>(id, name, help, indices...);
    }

    // Slots that the virtual table keeps for members to come.
    InterfaceBuilder& Reserved(int slots) {
        builder_.Reserve(slots);
        return *this;
    }

    InterfaceDescription Build() { return builder_.Take(); }

private:
    template <auto Function, class... Ps>
    requires Describes<Function, Ps...> InterfaceBuilder& Add(DISPID id, const char* name,
                                                              const char* help, INVOKEKIND kind,
                                                              const Ps&... parameters) {
        using Traits = detail::MemberTraits<decltype(Function)>;
        builder_.Add({name, id, kind, help, Traits::Describe(parameters...),
                      &Traits::template Call<Interface, Function>, detail::SlotOf(Function)});
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

    EventsBuilder(const char* name, const IID& id, const char* help,
                  const LibraryDescription& (*library)() = nullptr)
        : builder_({name, id, help, true, {}, library}) {}

    // `id` is a dispatch identifier, or an enumerator with its value.
    template <class Id>
    EventsBuilder& Event(Id id, const char* name, const char* help,
                         std::initializer_list<Argument> arguments = {}) {
        return Add(static_cast<DISPID>(id), name, help, arguments);
    }
    InterfaceDescription Build() { return builder_.Take(); }

private:
    EventsBuilder& Add(DISPID id, const char* name, const char* help,
                       std::initializer_list<Argument> arguments);

    DescriptionBuilder builder_;
};

}  // namespace mavrin2::automation
