#include "hosts/binding/type_description.h"

#include <algorithm>
#include <iterator>

#include "automation/text.h"
#include "hosts/binding/call_error.h"
#include "hosts/binding/late_binding.h"

namespace mavrin2::binding {
namespace {

using automation::Bstr;
using automation::ComPtr;
using automation::EqualIgnoringCase;

void Check(HRESULT status) {
    if (FAILED(status)) throw CallError(status, "Type description: " + StatusText(status));
}

// A record borrowed from type information, released by the destructor.
template <class Record, auto Get, auto Release>
class Lent {
public:
    template <class... Arguments>
    explicit Lent(ITypeInfo& owner, Arguments... arguments) : owner_(owner) {
        Check((owner.*Get)(arguments..., &record_));
    }
    Lent(const Lent&) = delete;
    Lent& operator=(const Lent&) = delete;
    ~Lent() { (owner_.*Release)(record_); }

    const Record* operator->() const { return record_; }

private:
    ITypeInfo& owner_;
    Record* record_ = nullptr;
};
using Attributes = Lent<TYPEATTR, &ITypeInfo::GetTypeAttr, &ITypeInfo::ReleaseTypeAttr>;
using Function = Lent<FUNCDESC, &ITypeInfo::GetFuncDesc, &ITypeInfo::ReleaseFuncDesc>;
using Variable = Lent<VARDESC, &ITypeInfo::GetVarDesc, &ITypeInfo::ReleaseVarDesc>;

struct Documentation {
    std::string Name;
    std::string Help;
};

Documentation Document(ITypeInfo& information, MEMBERID member) {
    Bstr name;
    Bstr help;
    Check(information.GetDocumentation(member, name.Put(), help.Put(), nullptr, nullptr));
    return {name.Utf8(), help.Utf8()};
}

ComPtr<ITypeInfo> Referred(ITypeInfo& information, HREFTYPE type) {
    ComPtr<ITypeInfo> referred;
    Check(information.GetRefTypeInfo(type, referred.Put()));
    return referred;
}

const char* NameOf(VARTYPE type) {
    switch (type) {
        case VT_I2:
            return "short";
        case VT_UI2:
            return "unsigned short";
        case VT_I4:
            return "long";
        case VT_UI4:
            return "unsigned long";
        case VT_R4:
            return "float";
        case VT_R8:
            return "double";
        case VT_BSTR:
            return "string";
        case VT_BOOL:
            return "boolean";
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return "object";
        case VT_VARIANT:
            return "variant";
        case VT_VOID:
            return "";
        default:
            return "value";
    }
}

DescribedType Plain(VARTYPE type) {
    // A status reports failure; it is no result.
    if (type == VT_HRESULT) type = VT_VOID;
    if (type == VT_INT) type = VT_I4;
    if (type == VT_UINT) type = VT_UI4;
    return {type, NameOf(type)};
}

// `type` may refer to further types of `information`.
DescribedType Describe(ITypeInfo& information, const TYPEDESC& type) {
    if (type.vt == VT_PTR) return Describe(information, *type.lptdesc);
    if (type.vt == VT_SAFEARRAY) {
        const DescribedType element = Describe(information, *type.lptdesc);
        return {static_cast<VARTYPE>(VT_ARRAY | element.Type), "array of " + element.Name};
    }
    if (type.vt != VT_USERDEFINED) return Plain(type.vt);
    const ComPtr<ITypeInfo> referred = Referred(information, type.hreftype);
    const Attributes attributes(*referred);
    if (attributes->typekind == TKIND_ALIAS) return Describe(*referred, attributes->tdescAlias);
    const VARTYPE kind = attributes->typekind == TKIND_ENUM ? VT_I4 : VT_DISPATCH;
    return {kind, Document(*referred, MEMBERID_NIL).Name};
}

DescribedParameter Describe(ITypeInfo& information, const ELEMDESC& element, std::string name) {
    DescribedParameter parameter;
    parameter.Name = std::move(name);
    parameter.Type = Describe(information, element.tdesc);
    const USHORT flags = element.paramdesc.wParamFlags;
    parameter.Out = (flags & PARAMFLAG_FOUT) != 0;
    // Without either flag a parameter goes in.
    parameter.In = !parameter.Out || (flags & PARAMFLAG_FIN) != 0;
    parameter.ByAddress = element.tdesc.vt == VT_PTR && element.tdesc.lptdesc->vt == VT_SAFEARRAY;
    parameter.Optional = (flags & PARAMFLAG_FOPT) != 0;
    if ((flags & PARAMFLAG_FHASDEFAULT) && element.paramdesc.pparamdescex)
        Check(VariantCopy(&parameter.Default, &element.paramdesc.pparamdescex->varDefaultValue));
    return parameter;
}

// The names of a member's parameters. Type information does not name the value of a put.
std::vector<std::string> ParameterNames(ITypeInfo& information, const FUNCDESC& function) {
    const auto parameters = static_cast<std::size_t>(function.cParams);
    std::vector<BSTR> names(parameters + 1);
    UINT count = 0;
    Check(information.GetNames(function.memid, names.data(), static_cast<UINT>(names.size()),
                               &count));
    std::vector<std::string> result;
    for (UINT i = 0; i < count; ++i) {
        const std::string name = automation::ToUtf8(Bstr::View(names[i]));
        SysFreeString(names[i]);
        if (i > 0) result.push_back(name);
    }
    result.resize(parameters);
    if ((function.invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) && parameters > 0)
        result.back() = "Value";
    return result;
}

DescribedMember Describe(ITypeInfo& information, const FUNCDESC& function) {
    DescribedMember member;
    Documentation texts = Document(information, function.memid);
    member.Name = std::move(texts.Name);
    member.Help = std::move(texts.Help);
    member.Id = function.memid;
    member.Kind = function.invkind;
    member.Result = Describe(information, function.elemdescFunc.tdesc);
    std::vector<std::string> names = ParameterNames(information, function);
    for (std::size_t i = 0; i < names.size(); ++i)
        member.Parameters.push_back(
            Describe(information, function.lprgelemdescParam[i], std::move(names[i])));
    return member;
}

// The class's implemented type that is its default event interface.
ComPtr<ITypeInfo> DefaultSource(ITypeInfo& classInformation) {
    constexpr INT kWanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
    const Attributes attributes(classInformation);
    for (UINT i = 0; i < attributes->cImplTypes; ++i) {
        INT flags = 0;
        HREFTYPE type = 0;
        Check(classInformation.GetImplTypeFlags(i, &flags));
        if ((flags & kWanted) != kWanted) continue;
        Check(classInformation.GetRefTypeOfImplType(i, &type));
        return Referred(classInformation, type);
    }
    return nullptr;
}

void AddConstants(ITypeInfo& enumeration, std::vector<Constant>& constants) {
    const Attributes attributes(enumeration);
    const std::string name = Document(enumeration, MEMBERID_NIL).Name;
    for (UINT i = 0; i < attributes->cVars; ++i) {
        const Variable variable(enumeration, i);
        Constant constant{name, Document(enumeration, variable->memid).Name, {}};
        Check(VariantCopy(&constant.Value, variable->lpvarValue));
        constants.push_back(std::move(constant));
    }
}

}  // namespace

TypeDescription::TypeDescription(ITypeInfo& information)
    : name_(Document(information, MEMBERID_NIL).Name) {
    const Attributes attributes(information);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        const Function function(information, i);
        if (function->wFuncFlags & FUNCFLAG_FRESTRICTED) continue;
        members_.push_back(Describe(information, *function.operator->()));
    }
}

const DescribedMember* TypeDescription::Find(std::string_view name, int kinds) const {
    const auto found = std::ranges::find_if(members_, [&](const DescribedMember& member) {
        return (member.Kind & kinds) != 0 && EqualIgnoringCase(member.Name, name);
    });
    return found == members_.end() ? nullptr : &*found;
}

const DescribedMember* TypeDescription::Find(DISPID id, int kinds) const {
    const auto found = std::ranges::find_if(members_, [&](const DescribedMember& member) {
        return (member.Kind & kinds) != 0 && member.Id == id;
    });
    return found == members_.end() ? nullptr : &*found;
}

ComPtr<ITypeInfo> TypeInformationOf(IDispatch& object) {
    ComPtr<ITypeInfo> information;
    UINT count = 0;
    Check(object.GetTypeInfoCount(&count));
    if (count > 0) Check(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, information.Put()));
    return information;
}

GUID IdOf(ITypeInfo& information) {
    return Attributes(information)->guid;
}

ComPtr<ITypeInfo> EventsOf(IDispatch& object) {
    const auto provider = ComPtr<IDispatch>(&object).As<IProvideClassInfo>();
    ComPtr<ITypeInfo> information;
    if (!provider || FAILED(provider->GetClassInfo(information.Put())) || !information)
        return nullptr;
    return DefaultSource(*information);
}

std::vector<Constant> ConstantsBeside(ITypeInfo& information) {
    ComPtr<ITypeLib> library;
    Check(information.GetContainingTypeLib(library.Put(), nullptr));
    std::vector<Constant> constants;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        TYPEKIND kind = TKIND_MAX;
        Check(library->GetTypeInfoType(i, &kind));
        if (kind != TKIND_ENUM) continue;
        ComPtr<ITypeInfo> enumeration;
        Check(library->GetTypeInfo(i, enumeration.Put()));
        AddConstants(*enumeration, constants);
    }
    return constants;
}

}  // namespace mavrin2::binding
