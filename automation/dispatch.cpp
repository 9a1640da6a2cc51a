#include "automation/dispatch.h"

#include <algorithm>

#include "automation/com_ptr.h"
#include "automation/guarded.h"
#include "automation/text.h"
#include "automation/variant.h"

namespace mavrin2::automation {
namespace {

constexpr WORD kPutKinds = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

bool IsLeftOut(const VARIANT& argument) {
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

// The argument itself, or the variant that it points to; null for a null pointer.
VARIANT* Dereferenced(VARIANT& argument) {
    return argument.vt == (VT_BYREF | VT_VARIANT) ? argument.pvarVal : &argument;
}

// Where the argument holds an array of that type; null for any other argument.
SAFEARRAY** ArrayIn(VARIANT& argument, VARTYPE type) {
    VARIANT* holder = Dereferenced(argument);
    if (!holder) return nullptr;
    if (holder->vt == type) return &holder->parray;
    return holder->vt == (VT_BYREF | type) ? holder->pparray : nullptr;
}

// Keeps an array from being destroyed or resized while a member reads it: a handler that runs
// meanwhile may assign to the variable that holds it.
class ArrayLock {
public:
    explicit ArrayLock(SAFEARRAY* array) : array_(array) { ThrowIfFailed(SafeArrayLock(array_)); }
    ArrayLock(ArrayLock&& other) noexcept : array_(std::exchange(other.array_, nullptr)) {}
    ArrayLock& operator=(ArrayLock&&) = delete;
    ~ArrayLock() {
        if (array_) SafeArrayUnlock(array_);
    }

private:
    SAFEARRAY* array_;
};

// Number of parameters that a caller can give, which excludes the result.
std::size_t SettableOf(const MemberDescription& member) {
    const auto& parameters = member.Parameters;
    const bool result = !parameters.empty() && parameters.back().Way == Direction::Result;
    return parameters.size() - (result ? 1 : 0);
}

// The arguments of one call, matched with the member's parameters and converted. Owns what the
// conversions made and writes results back into the caller's variants.
class ArgumentList {
public:
    ArgumentList(const MemberDescription& member, const Invocation& call)
        : member_(member),
          call_(call),
          given_(member.Parameters.size(), nullptr),
          returned_(member.Parameters.size(), nullptr),
          converted_(member.Parameters.size()),
          passed_(member.Parameters.size()) {}

    HRESULT Prepare() {
        if (const HRESULT status = Match(); FAILED(status)) return status;
        for (std::size_t i = 0; i < member_.Parameters.size(); ++i) {
            const ParameterDescription& parameter = member_.Parameters[i];
            const HRESULT status = parameter.Way == Direction::In      ? PassIn(i)
                                   : parameter.Way == Direction::InOut ? PassInOut(i)
                                                                       : PassOut(i);
            if (FAILED(status)) {
                if (call_.BadArgument && given_[i])
                    *call_.BadArgument = static_cast<UINT>(given_[i] - call_.Arguments->rgvarg);
                return status;
            }
        }
        return S_OK;
    }

    VARIANT* Passed() { return passed_.data(); }

    // After a call that succeeded: out-values into the caller's variants, the result into its own.
    HRESULT CopyBack() {
        for (std::size_t i = 0; i < member_.Parameters.size(); ++i) {
            const Direction way = member_.Parameters[i].Way;
            if (way == Direction::Result && call_.Result) {
                VariantClear(call_.Result);
                Move(converted_[i], *call_.Result);
            } else if (returned_[i]) {
                VariantClear(returned_[i]);
                Move(converted_[i], *returned_[i]);
            }
        }
        return S_OK;
    }

private:
    static void Move(VARIANT& from, VARIANT& to) {
        to = from;
        VariantInit(&from);
    }

    // Assigns the caller's variants to parameters.
    HRESULT Match() {
        const DISPPARAMS& all = *call_.Arguments;
        const bool put = (member_.Kind & kPutKinds) != 0;
        // The new value must be named as such.
        if (put && (all.cNamedArgs == 0 || all.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT))
            return DISP_E_PARAMNOTFOUND;
        const std::size_t settable = SettableOf(member_);
        for (UINT i = 0; i < all.cNamedArgs; ++i) {
            const DISPID id = all.rgdispidNamedArgs[i];
            const std::size_t index = put && id == DISPID_PROPERTYPUT
                                          ? member_.Parameters.size() - 1
                                          : static_cast<std::size_t>(id);
            if (id < 0 && !(put && id == DISPID_PROPERTYPUT)) return Unknown(i);
            if (index >= settable || given_[index]) return Unknown(i);
            given_[index] = &all.rgvarg[i];
        }
        const UINT positional = all.cArgs - all.cNamedArgs;
        if (positional > settable || all.cArgs < Required()) return DISP_E_BADPARAMCOUNT;
        for (UINT i = 0; i < positional; ++i) {
            if (given_[i]) return DISP_E_BADPARAMCOUNT;
            given_[i] = &all.rgvarg[all.cArgs - 1 - i];
        }
        return S_OK;
    }

    std::size_t Required() const {
        return static_cast<std::size_t>(
            std::ranges::count_if(member_.Parameters, [](const ParameterDescription& parameter) {
                return !parameter.IsOptional() && parameter.Way != Direction::Result;
            }));
    }

    HRESULT Unknown(UINT named) {
        if (call_.BadArgument) *call_.BadArgument = named;
        return DISP_E_PARAMNOTFOUND;
    }

    HRESULT PassIn(std::size_t i) {
        const ParameterDescription& parameter = member_.Parameters[i];
        VARIANT* argument = given_[i];
        if (!argument || IsLeftOut(*argument)) {
            if (!parameter.IsOptional()) return DISP_E_PARAMNOTOPTIONAL;
            converted_[i] = parameter.MakeDefault();
            passed_[i] = converted_[i];
            return S_OK;
        }
        if (parameter.Type.Type & VT_ARRAY) return PassArray(i);
        const HRESULT status = Convert(*argument, parameter.Type, converted_[i]);
        passed_[i] = converted_[i];
        return status;
    }

    // The caller's own array; it is not copied.
    HRESULT PassArray(std::size_t i) {
        const ParameterDescription& parameter = member_.Parameters[i];
        SAFEARRAY** array = ArrayIn(*given_[i], parameter.Type.Type);
        if (!array) return DISP_E_TYPEMISMATCH;
        const bool changeable = parameter.Way == Direction::InOut;
        // A changed array would be lost.
        if (changeable && !(given_[i]->vt & VT_BYREF)) return DISP_E_TYPEMISMATCH;
        if (!changeable && *array) locks_.emplace_back(*array);
        if (parameter.ByAddress || changeable) {
            passed_[i].vt = static_cast<VARTYPE>(VT_BYREF | parameter.Type.Type);
            passed_[i].pparray = array;
        } else {
            passed_[i].vt = parameter.Type.Type;
            passed_[i].parray = *array;
        }
        return S_OK;
    }

    HRESULT PassInOut(std::size_t i) {
        const ValueType& type = member_.Parameters[i].Type;
        VARIANT* argument = given_[i];
        if (!argument || IsLeftOut(*argument)) return DISP_E_PARAMNOTOPTIONAL;
        if (type.Type & VT_ARRAY) return PassArray(i);
        if (PassExact(i)) return S_OK;
        if (argument->vt != (VT_BYREF | VT_VARIANT) || !argument->pvarVal)
            return DISP_E_TYPEMISMATCH;
        if (const HRESULT status = Convert(*argument, type, converted_[i]); FAILED(status))
            return status;
        PassOwn(i);
        returned_[i] = argument->pvarVal;
        return S_OK;
    }

    // A variable of the parameter's own type is passed as it is.
    bool PassExact(std::size_t i) {
        const VARTYPE type = member_.Parameters[i].Type.Type;
        if (given_[i]->vt != (VT_BYREF | type) || !given_[i]->byref) return false;
        passed_[i] = *given_[i];
        return true;
    }

    // The address of the value in the converted variant.
    void PassOwn(std::size_t i) {
        const VARTYPE type = member_.Parameters[i].Type.Type;
        passed_[i].vt = static_cast<VARTYPE>(VT_BYREF | type);
        passed_[i].byref = type == VT_VARIANT ? static_cast<void*>(&converted_[i])
                                              : static_cast<void*>(&converted_[i].llVal);
    }

    static HRESULT Convert(VARIANT& argument, const ValueType& type, Variant& converted) {
        VARIANT* source = Dereferenced(argument);
        if (!source) return DISP_E_TYPEMISMATCH;
        if (type.Type == VT_VARIANT) return VariantCopyInd(&converted, source);
        if (type.Type == VT_DISPATCH || type.Type == VT_UNKNOWN)
            return ConvertObject(*source, type, converted);
        const HRESULT status =
            VariantChangeTypeEx(&converted, source, LOCALE_USER_DEFAULT, 0, type.Type);
        return status == DISP_E_BADVARTYPE ? DISP_E_TYPEMISMATCH : status;
    }

    static HRESULT ConvertObject(VARIANT& source, const ValueType& type, Variant& converted) {
        Variant plain;
        if (const HRESULT status = VariantCopyInd(&plain, &source); FAILED(status)) return status;
        if (plain.vt != VT_DISPATCH && plain.vt != VT_UNKNOWN) {
            if (plain.vt != VT_EMPTY && plain.vt != VT_NULL) return DISP_E_TYPEMISMATCH;
            converted.vt = type.Type;
            converted.punkVal = nullptr;
            return S_OK;
        }
        converted.vt = type.Type;
        converted.punkVal = nullptr;
        if (!plain.punkVal) return S_OK;
        const IID& wanted = type.Interface             ? type.Interface().Id
                            : type.Type == VT_DISPATCH ? IidOf<IDispatch>()
                                                       : IidOf<IUnknown>();
        void* object = nullptr;
        if (FAILED(plain.punkVal->QueryInterface(wanted, &object))) return DISP_E_TYPEMISMATCH;
        converted.punkVal = static_cast<IUnknown*>(object);
        return S_OK;
    }

    HRESULT PassOut(std::size_t i) {
        const ParameterDescription& parameter = member_.Parameters[i];
        VARIANT* argument = given_[i];
        if (parameter.Way == Direction::Out) {
            if (!argument) return DISP_E_PARAMNOTOPTIONAL;
            if (PassExact(i)) return S_OK;
            if (argument->vt != (VT_BYREF | VT_VARIANT) || !argument->pvarVal)
                return DISP_E_TYPEMISMATCH;
            returned_[i] = argument->pvarVal;
        }
        if (parameter.Type.Type != VT_VARIANT) converted_[i].vt = parameter.Type.Type;
        converted_[i].llVal = 0;
        PassOwn(i);
        return S_OK;
    }

    const MemberDescription& member_;
    const Invocation& call_;
    std::vector<VARIANT*> given_;
    std::vector<VARIANT*> returned_;  // variables of scripts that get the converted value back
    std::vector<Variant> converted_;
    std::vector<ArrayLock> locks_;
    std::vector<VARIANT> passed_;
};

// The failing member's own error information, for a caller that cannot ask for it itself.
HRESULT ReportException(HRESULT status, EXCEPINFO* exception) {
    if (!exception) return DISP_E_EXCEPTION;
    *exception = {};
    exception->scode = status;
    ComPtr<IErrorInfo> information;
    if (GetErrorInfo(0, information.Put()) == S_OK && information) {
        information->GetSource(&exception->bstrSource);
        information->GetDescription(&exception->bstrDescription);
        information->GetHelpFile(&exception->bstrHelpFile);
        information->GetHelpContext(&exception->dwHelpContext);
    }
    return DISP_E_EXCEPTION;
}

// A property without parameters that is read with some: they are meant for the object it returns.
bool IsMeantForTheValue(const MemberDescription& member, const DISPPARAMS& arguments) {
    return member.Kind == INVOKE_PROPERTYGET && SettableOf(member) == 0 &&
           arguments.cArgs > arguments.cNamedArgs;
}

HRESULT CallMember(const MemberDescription& member, void* object, const Invocation& call) {
    ArgumentList arguments(member, call);
    if (const HRESULT status = arguments.Prepare(); FAILED(status)) return status;
    // Error information of an earlier call must not be attributed to this one.
    SetErrorInfo(0, nullptr);
    const HRESULT status = member.Call(object, arguments.Passed());
    if (FAILED(status)) return ReportException(status, call.Exception);
    return arguments.CopyBack();
}

HRESULT CallDefaultOfValue(const MemberDescription& member, void* object, const Invocation& call) {
    DISPPARAMS none{};
    Variant value;
    Invocation reading = call;
    reading.Arguments = &none;
    reading.Result = &value;
    if (const HRESULT status = CallMember(member, object, reading); FAILED(status)) return status;
    if (value.vt != VT_DISPATCH || !value.pdispVal) return DISP_E_NOTACOLLECTION;
    return value.pdispVal->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                  call.Arguments, call.Result, call.Exception, call.BadArgument);
}

int KindsOf(WORD flags) {
    // Languages that do not distinguish calls from property reads set both flags.
    return flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET | kPutKinds);
}

}  // namespace

HRESULT FindNames(const InterfaceDescription& description, REFIID reserved, LPOLESTR* names,
                  UINT count, DISPID* ids) {
    return Guarded([&]() -> HRESULT {
        if (!names || !ids || count == 0) return E_INVALIDARG;
        if (!IsEqualGUID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        for (UINT i = 0; i < count; ++i)
            ids[i] = DISPID_UNKNOWN;
        const MemberDescription* member = description.Find(ToUtf8(names[0]));
        if (!member) return DISP_E_UNKNOWNNAME;
        ids[0] = member->Id;
        HRESULT status = S_OK;
        for (UINT i = 1; i < count; ++i) {
            const std::string name = ToUtf8(names[i]);
            for (std::size_t p = 0; p < member->Parameters.size(); ++p)
                // A result is not an argument.
                if (member->Parameters[p].Way != Direction::Result &&
                    EqualIgnoringCase(member->Parameters[p].Name, name))
                    ids[i] = static_cast<DISPID>(p);
            if (ids[i] == DISPID_UNKNOWN) status = DISP_E_UNKNOWNNAME;
        }
        return status;
    });
}

HRESULT InvokeMember(const InterfaceDescription& description, void* object, REFIID reserved,
                     const Invocation& call) {
    return Guarded([&]() -> HRESULT {
        if (!IsEqualGUID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
        if (!call.Arguments || (call.Arguments->cArgs > 0 && !call.Arguments->rgvarg) ||
            (call.Arguments->cNamedArgs > 0 && !call.Arguments->rgdispidNamedArgs) ||
            call.Arguments->cNamedArgs > call.Arguments->cArgs)
            return E_INVALIDARG;
        const MemberDescription* member = description.Find(call.Member, KindsOf(call.Flags));
        if (!member) return DISP_E_MEMBERNOTFOUND;
        // The host may release the object during the call.
        const ComPtr<IUnknown> held(static_cast<IUnknown*>(object));
        return IsMeantForTheValue(*member, *call.Arguments)
                   ? CallDefaultOfValue(*member, object, call)
                   : CallMember(*member, object, call);
    });
}

}  // namespace mavrin2::automation
