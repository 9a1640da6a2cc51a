#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "automation/com_ptr.h"
#include "automation/variant.h"
#include "hosts/binding/call_error.h"
#include "platform/automation.h"

namespace mavrin2::binding {

// The program identifier of the sound editor.
inline constexpr const char* kEditorProgId = "KovMavrin2.Mavrin2";

// A new object of the class with that program identifier. Throws CallError.
automation::ComPtr<IDispatch> CreateObject(std::string_view progId);

struct Invocation {
    std::string_view Name;  // of the member, for messages
    DISPID Member;
    WORD Flags;                    // one DISPATCH_… kind
    std::span<VARIANT> Arguments;  // in the order of declaration, a property's new value last
};

// Calls a member by its identifier; the caller keeps the arguments. Throws CallError.
automation::Variant Invoke(IDispatch& object, const Invocation& call);

// Calls the members of an object by name, as a script does. All of it throws CallError.
class LateBound {
public:
    explicit LateBound(automation::ComPtr<IDispatch> object) : object_(std::move(object)) {}

    IDispatch& Object() const { return *object_; }

    template <class... Arguments>
    automation::Variant Call(std::string_view method, const Arguments&... arguments) const {
        return Invoke(method, DISPATCH_METHOD, arguments...);
    }
    template <class Value>
    void Put(std::string_view property, const Value& value) const {
        Invoke(property, DISPATCH_PROPERTYPUT, value);
    }
    std::int32_t Number(std::string_view property) const;
    double Real(std::string_view property) const;
    std::string Text(std::string_view property) const;
    // A property whose value is an object.
    LateBound Part(std::string_view property) const;

private:
    static automation::Variant ToVariant(std::int32_t value);
    static automation::Variant ToVariant(double value);
    static automation::Variant ToVariant(bool value);
    static automation::Variant ToVariant(std::string_view text);
    static automation::Variant ToVariant(const std::string& text) {
        return ToVariant(std::string_view(text));
    }
    static automation::Variant ToVariant(const LateBound& object);
    // A literal would convert to bool rather than to a view.
    static automation::Variant ToVariant(const char* text) {
        return ToVariant(std::string_view(text));
    }

    template <class... Arguments>
    automation::Variant Invoke(std::string_view name, WORD flags,
                               const Arguments&... arguments) const {
        automation::Variant values[sizeof...(arguments) + 1] = {ToVariant(arguments)...};
        return InvokeByName(name, flags, {values, sizeof...(arguments)});
    }
    automation::Variant ReadAs(VARTYPE type, std::string_view property) const;
    automation::Variant InvokeByName(std::string_view name, WORD flags,
                                     std::span<automation::Variant> arguments) const;

    automation::ComPtr<IDispatch> object_;
};

}  // namespace mavrin2::binding
