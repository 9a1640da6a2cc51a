#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/variant.h"
#include "platform/automation.h"

namespace mavrin2::binding {

// The type of a value according to a type library: its variant type (VT_I4 for an enumeration,
// VT_DISPATCH for an object, VT_ARRAY | element for an array) and a name to display.
struct DescribedType {
    VARTYPE Type = VT_VOID;
    std::string Name;

    bool IsVoid() const { return Type == VT_VOID; }
    bool IsObject() const { return Type == VT_DISPATCH || Type == VT_UNKNOWN; }
};

struct DescribedParameter {
    std::string Name;
    DescribedType Type;
    bool In = true;
    bool Out = false;
    bool ByAddress = false;  // an array that goes in by its address
    bool Optional = false;
    automation::Variant Default;  // empty without one
};

struct DescribedMember {
    std::string Name;
    DISPID Id = DISPID_UNKNOWN;
    INVOKEKIND Kind = INVOKE_FUNC;
    std::string Help;
    std::vector<DescribedParameter> Parameters;  // the value of a put comes last
    DescribedType Result;                        // void if there is no result
};

// An interface as its type information describes it. Failures of the type information throw
// CallError.
class TypeDescription {
public:
    // For an object without type information.
    TypeDescription() = default;
    explicit TypeDescription(ITypeInfo& information);

    bool IsKnown() const { return !name_.empty(); }

    std::string Name() const { return IsKnown() ? name_ : "object"; }
    const std::vector<DescribedMember>& Members() const { return members_; }

    // The member of that name that is one of the kinds (a sum of INVOKEKIND), or null. Names are
    // compared without regard to case, as automation does.
    const DescribedMember* Find(std::string_view name, int kinds) const;
    const DescribedMember* Find(DISPID id, int kinds) const;

private:
    std::string name_;
    std::vector<DescribedMember> members_;
};

inline constexpr int kAnyKind =
    INVOKE_FUNC | INVOKE_PROPERTYGET | INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF;

// The type information of an object's interface; null if it has none. Throws CallError if the
// object fails to provide it.
automation::ComPtr<ITypeInfo> TypeInformationOf(IDispatch& object);

// The identifier of a type.
GUID IdOf(ITypeInfo& information);

// The default event interface of an object's class; null if it has none.
automation::ComPtr<ITypeInfo> EventsOf(IDispatch& object);

struct Constant {
    std::string Enumeration;
    std::string Name;
    automation::Variant Value;
};

// The members of all enumerations of the library that describes a type.
std::vector<Constant> ConstantsBeside(ITypeInfo& information);

}  // namespace mavrin2::binding
