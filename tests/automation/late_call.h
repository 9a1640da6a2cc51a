#pragma once

#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/text.h"
#include "automation/variant.h"
#include "platform/automation.h"

namespace mavrin2::tests {

// Values as tests write and compare them: the C++ type is the automation type.
struct Bool {
    VARIANT_BOOL Bits;
    bool operator==(const Bool&) const = default;
};
struct LeftOut {
    bool operator==(const LeftOut&) const = default;
};
struct Null {
    bool operator==(const Null&) const = default;
};
using Value =
    std::variant<std::monostate, SHORT, LONG, FLOAT, DOUBLE, std::string, Bool, LeftOut, Null>;

inline automation::Variant ToVariant(const Value& value) {
    automation::Variant v;
    struct {
        automation::Variant& V;
        void operator()(std::monostate) const {}
        void operator()(SHORT x) const { V.vt = VT_I2, V.iVal = x; }
        void operator()(LONG x) const { V.vt = VT_I4, V.lVal = x; }
        void operator()(FLOAT x) const { V.vt = VT_R4, V.fltVal = x; }
        void operator()(DOUBLE x) const { V.vt = VT_R8, V.dblVal = x; }
        void operator()(const std::string& x) const {
            V.bstrVal = automation::NewBstr(std::string_view(x));
            V.vt = VT_BSTR;
        }
        void operator()(Bool x) const { V.vt = VT_BOOL, V.boolVal = x.Bits; }
        void operator()(LeftOut) const { V.vt = VT_ERROR, V.scode = DISP_E_PARAMNOTFOUND; }
        void operator()(Null) const { V.vt = VT_NULL; }
    } fill{v};
    std::visit(fill, value);
    return v;
}

inline Value FromVariant(const VARIANT& v) {
    switch (v.vt) {
        case VT_I2:
            return v.iVal;
        case VT_I4:
            return v.lVal;
        case VT_R4:
            return v.fltVal;
        case VT_R8:
            return v.dblVal;
        case VT_BSTR:
            return automation::ToUtf8(automation::Bstr::View(v.bstrVal));
        case VT_BOOL:
            return Bool{v.boolVal};
        case VT_NULL:
            return Null{};
        case VT_EMPTY:
            return std::monostate();
        default:
            return "variant of type " + std::to_string(v.vt);
    }
}

inline std::ostream& operator<<(std::ostream& out, const Value& value) {
    automation::Variant v = ToVariant(value);
    out << "VT " << v.vt << ' ';
    if (SUCCEEDED(VariantChangeType(&v, &v, 0, VT_BSTR)))
        out << std::get<std::string>(FromVariant(v));
    return out;
}

// One late-bound call and what came of it.
class LateCall {
public:
    static constexpr UINT kNone = 99;

    // Arguments in the order of declaration; the first `named` of them by the identifiers given.
    LateCall(IDispatch& object, const char* member, WORD flags, const std::vector<Value>& arguments,
             std::vector<DISPID> named = {}) {
        for (const Value& argument : arguments)
            values_.push_back(ToVariant(argument));
        std::vector<VARIANT> passed;
        // Named ones first, then the others, the last one first.
        for (std::size_t i = 0; i < named.size(); ++i)
            passed.push_back(values_[i]);
        for (std::size_t i = values_.size(); i > named.size(); --i)
            passed.push_back(values_[i - 1]);
        Invoke(object, member, flags, passed, named);
    }
    // The variants as they are, in the order of a call.
    struct AsTheyAre {
        std::vector<VARIANT> Arguments;
    };
    LateCall(IDispatch& object, const char* member, WORD flags, AsTheyAre passed,
             std::vector<DISPID> named = {}) {
        Invoke(object, member, flags, passed.Arguments, named);
    }

    HRESULT Status = E_PENDING;
    automation::Variant Result;
    UINT BadArgument = kNone;
    EXCEPINFO Exception{};

    LateCall(const LateCall&) = delete;
    LateCall& operator=(const LateCall&) = delete;
    ~LateCall() {
        SysFreeString(Exception.bstrSource);
        SysFreeString(Exception.bstrDescription);
        SysFreeString(Exception.bstrHelpFile);
    }

private:
    void Invoke(IDispatch& object, const char* member, WORD flags, std::vector<VARIANT>& passed,
                std::vector<DISPID>& named) {
        automation::OleString name = automation::ToOle(std::string_view(member));
        LPOLESTR names[] = {name.data()};
        DISPID id = DISPID_UNKNOWN;
        Status = object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
        if (FAILED(Status)) return;
        DISPPARAMS parameters{passed.data(), named.data(), static_cast<UINT>(passed.size()),
                              static_cast<UINT>(named.size())};
        Status = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &Result,
                               &Exception, &BadArgument);
    }

    std::vector<automation::Variant> values_;
};

}  // namespace mavrin2::tests
