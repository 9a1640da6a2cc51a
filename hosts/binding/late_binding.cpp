#include "hosts/binding/late_binding.h"

#include <vector>

#include "automation/text.h"
#include "hosts/binding/call_error.h"

namespace mavrin2::binding {
namespace {

using automation::Bstr;
using automation::ComPtr;
using automation::OleString;
using automation::ToOle;
using automation::ToUtf8;
using automation::Variant;

constexpr UINT kNoArgument = static_cast<UINT>(-1);

// A component's description of its failure; owns the strings.
class ExceptionInformation : public EXCEPINFO {
public:
    ExceptionInformation() : EXCEPINFO{} {}
    ExceptionInformation(const ExceptionInformation&) = delete;
    ExceptionInformation& operator=(const ExceptionInformation&) = delete;
    ~ExceptionInformation() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }

    CallError ToError() {
        if (pfnDeferredFillIn) pfnDeferredFillIn(this);
        const HRESULT status = FAILED(scode) ? scode : DISP_E_EXCEPTION;
        const std::string description = ToUtf8(Bstr::View(bstrDescription));
        return {status, description.empty() ? StatusText(status) : description};
    }
};

}  // namespace

ComPtr<IDispatch> CreateObject(std::string_view progId) {
    const OleString wide = ToOle(progId);
    CLSID id{};
    ComPtr<IDispatch> object;
    HRESULT status = CLSIDFromProgID(wide.c_str(), &id);
    if (SUCCEEDED(status))
        status =
            CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.PutVoid());
    if (SUCCEEDED(status) && object) return object;
    if (SUCCEEDED(status)) status = E_NOINTERFACE;
    throw CallError(status, "Cannot create " + std::string(progId) + ": " + StatusText(status));
}

Variant Invoke(IDispatch& object, const Invocation& call) {
    // The last argument comes first in a call.
    std::vector<VARIANT> reversed(call.Arguments.rbegin(), call.Arguments.rend());
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    DISPID value = DISPID_PROPERTYPUT;
    const bool put = (call.Flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (put) {
        parameters.rgdispidNamedArgs = &value;
        parameters.cNamedArgs = 1;
    }
    Variant result;
    ExceptionInformation exception;
    UINT bad = kNoArgument;
    const HRESULT status = object.Invoke(call.Member, GUID_NULL, LOCALE_USER_DEFAULT, call.Flags,
                                         &parameters, put ? nullptr : &result, &exception, &bad);
    if (SUCCEEDED(status)) return result;
    if (status == DISP_E_EXCEPTION) throw exception.ToError();
    std::string where(call.Name);
    if (bad < reversed.size()) where += ", argument " + std::to_string(reversed.size() - bad);
    throw CallError(status, where + ": " + StatusText(status));
}

Variant LateBound::ReadAs(VARTYPE type, std::string_view property) const {
    Variant value = Invoke(property, DISPATCH_PROPERTYGET);
    if (const HRESULT status = VariantChangeType(&value, &value, 0, type); FAILED(status))
        throw CallError(status, std::string(property) + ": " + StatusText(status));
    return value;
}

std::int32_t LateBound::Number(std::string_view property) const {
    return ReadAs(VT_I4, property).lVal;
}

double LateBound::Real(std::string_view property) const {
    return ReadAs(VT_R8, property).dblVal;
}

std::string LateBound::Text(std::string_view property) const {
    const Variant value = Invoke(property, DISPATCH_PROPERTYGET);
    return value.vt == VT_BSTR ? ToUtf8(Bstr::View(value.bstrVal)) : std::string();
}

LateBound LateBound::Part(std::string_view property) const {
    Variant value = Invoke(property, DISPATCH_PROPERTYGET);
    if (value.vt != VT_DISPATCH || !value.pdispVal)
        throw CallError(E_NOINTERFACE, std::string(property) + ": " + StatusText(E_NOINTERFACE));
    return LateBound(ComPtr<IDispatch>(value.pdispVal));
}

Variant LateBound::ToVariant(std::int32_t value) {
    return Variant::Int32(value);
}

Variant LateBound::ToVariant(double value) {
    Variant result;
    result.vt = VT_R8;
    result.dblVal = value;
    return result;
}

Variant LateBound::ToVariant(bool value) {
    Variant result;
    result.vt = VT_BOOL;
    result.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return result;
}

Variant LateBound::ToVariant(std::string_view text) {
    Variant result;
    result.bstrVal = automation::NewBstr(text);
    result.vt = VT_BSTR;
    return result;
}

Variant LateBound::ToVariant(const LateBound& object) {
    Variant result;
    object.object_->AddRef();
    result.pdispVal = object.object_.Get();
    result.vt = VT_DISPATCH;
    return result;
}

Variant LateBound::InvokeByName(std::string_view name, WORD flags,
                                std::span<Variant> arguments) const {
    OleString wide = ToOle(name);
    LPOLESTR names[] = {wide.data()};
    DISPID id = DISPID_UNKNOWN;
    const HRESULT status = object_->GetIDsOfNames(GUID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(status)) throw CallError(status, std::string(name) + ": " + StatusText(status));
    std::vector<VARIANT> values(arguments.begin(), arguments.end());
    return binding::Invoke(*object_, {name, id, flags, values});
}

}  // namespace mavrin2::binding
