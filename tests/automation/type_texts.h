#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "automation/text.h"
#include "tests/automation/late_call.h"

namespace mavrin2::tests {

// Type information as text that can be compared and read.

inline std::string NameOf(ITypeInfo& information, MEMBERID member = MEMBERID_NIL) {
    automation::Bstr name;
    EXPECT_EQ(information.GetDocumentation(member, name.Put(), nullptr, nullptr, nullptr), S_OK);
    return name.Utf8();
}

inline std::string HelpOf(ITypeInfo& information, MEMBERID member = MEMBERID_NIL) {
    automation::Bstr help;
    EXPECT_EQ(information.GetDocumentation(member, nullptr, help.Put(), nullptr, nullptr), S_OK);
    return help.Utf8();
}

// A type as text: enumerations and objects by the names they are referred to.
inline std::string TypeText(ITypeInfo& information, const TYPEDESC& type) {
    if (type.vt == VT_PTR) return "*" + TypeText(information, *type.lptdesc);
    if (type.vt == VT_SAFEARRAY) return "[" + TypeText(information, *type.lptdesc) + "]";
    if (type.vt != VT_USERDEFINED) return std::to_string(type.vt);
    automation::ComPtr<ITypeInfo> referred;
    EXPECT_EQ(information.GetRefTypeInfo(type.hreftype, referred.Put()), S_OK);
    return referred ? NameOf(*referred) : "?";
}

inline std::string DirectionText(const ELEMDESC& parameter) {
    std::string text;
    const auto add = [&](USHORT flag, const char* word) {
        if (parameter.paramdesc.wParamFlags & flag) text += word;
    };
    add(PARAMFLAG_FIN, "in ");
    add(PARAMFLAG_FOUT, "out ");
    add(PARAMFLAG_FRETVAL, "retval ");
    add(PARAMFLAG_FOPT, "optional ");
    if (parameter.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT) {
        std::ostringstream value;
        value << FromVariant(parameter.paramdesc.pparamdescex->varDefaultValue);
        text += "= " + value.str() + " ";
    }
    return text;
}

inline std::string MemberText(ITypeInfo& information, const FUNCDESC& function) {
    constexpr UINT kRoom = 12;
    BSTR names[kRoom] = {};
    UINT count = 0;
    EXPECT_EQ(information.GetNames(function.memid, names, kRoom, &count), S_OK);
    std::string text = std::to_string(function.invkind) + " " +
                       TypeText(information, function.elemdescFunc.tdesc) + " " +
                       automation::ToUtf8(automation::Bstr::View(names[0])) + "(";
    for (SHORT i = 0; i < function.cParams; ++i) {
        const ELEMDESC& parameter = function.lprgelemdescParam[i];
        const UINT name = static_cast<UINT>(i) + 1;
        text += (i ? ", " : "") + DirectionText(parameter) + TypeText(information, parameter.tdesc);
        if (name < count) text += " " + automation::ToUtf8(automation::Bstr::View(names[name]));
    }
    for (BSTR name : names)
        SysFreeString(name);
    return text + ")";
}

// What a compiled interface inherits from the system's own, and slots kept for members to come:
// hosts are not shown either.
inline bool IsHidden(const FUNCDESC& function) {
    constexpr MEMBERID kFirstOfTheSystem = 0x60000000;
    return function.memid >= kFirstOfTheSystem;
}

// The members of a type as texts, by their identifiers.
inline std::map<MEMBERID, std::vector<std::string>> MembersOf(ITypeInfo& information) {
    std::map<MEMBERID, std::vector<std::string>> members;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(information.GetFuncDesc(i, &function)); ++i) {
        EXPECT_EQ(function->funckind, FUNC_DISPATCH);
        if (!IsHidden(*function))
            members[function->memid].push_back(MemberText(information, *function));
        information.ReleaseFuncDesc(function);
    }
    return members;
}

// The constants of an enumeration as texts, in their order.
inline std::vector<std::string> ConstantsOf(ITypeInfo& information) {
    std::vector<std::string> constants;
    VARDESC* variable = nullptr;
    for (UINT i = 0; SUCCEEDED(information.GetVarDesc(i, &variable)); ++i) {
        EXPECT_EQ(variable->varkind, VAR_CONST);
        EXPECT_EQ(variable->lpvarValue->vt, VT_I4);
        constants.push_back(NameOf(information, variable->memid) + " = " +
                            std::to_string(variable->lpvarValue->lVal));
        information.ReleaseVarDesc(variable);
    }
    return constants;
}

// Everything that a library says: its types by their names, each with its members.
inline std::map<std::string, std::vector<std::string>> LibraryTexts(ITypeLib& library) {
    std::map<std::string, std::vector<std::string>> texts;
    for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
        automation::ComPtr<ITypeInfo> type;
        EXPECT_EQ(library.GetTypeInfo(i, type.Put()), S_OK);
        TYPEATTR* attributes = nullptr;
        EXPECT_EQ(type->GetTypeAttr(&attributes), S_OK);
        std::vector<std::string>& lines = texts[NameOf(*type)];
        OLECHAR id[40] = {};
        StringFromGUID2(attributes->guid, id, 40);
        constexpr int kShown = TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FCONTROL |
                               TYPEFLAG_FCANCREATE | TYPEFLAG_FDISPATCHABLE;
        lines.push_back(automation::ToUtf8(id) + " kind " + std::to_string(attributes->typekind) +
                        " flags " + std::to_string(attributes->wTypeFlags & kShown) + ": " +
                        HelpOf(*type));
        if (attributes->typekind == TKIND_ENUM) {
            for (const std::string& constant : ConstantsOf(*type))
                lines.push_back(constant);
        } else if (attributes->typekind == TKIND_COCLASS) {
            for (UINT j = 0; j < attributes->cImplTypes; ++j) {
                HREFTYPE reference = 0;
                INT flags = 0;
                automation::ComPtr<ITypeInfo> implemented;
                EXPECT_EQ(type->GetRefTypeOfImplType(j, &reference), S_OK);
                EXPECT_EQ(type->GetImplTypeFlags(j, &flags), S_OK);
                EXPECT_EQ(type->GetRefTypeInfo(reference, implemented.Put()), S_OK);
                lines.push_back(NameOf(*implemented) + " " + std::to_string(flags));
            }
        } else {
            for (const auto& [id, members] : MembersOf(*type))
                for (const std::string& member : members)
                    lines.push_back(std::to_string(id) + " " + member + ": " + HelpOf(*type, id));
        }
        type->ReleaseTypeAttr(attributes);
    }
    return texts;
}

}  // namespace mavrin2::tests
