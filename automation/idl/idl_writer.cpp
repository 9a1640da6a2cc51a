#include "automation/idl/idl_writer.h"

#include <bit>
#include <cstdint>
#include <cstdio>
#include <stdexcept>

namespace mavrin2::automation {
namespace {

// Precedes the library: the compiler takes the system's own types from the imported library, but
// learns their names and shapes here.
constexpr const char* kSystemTypes = R"(typedef short VARIANT_BOOL;
typedef wchar_t* BSTR;
typedef long HRESULT;
typedef struct tagVARIANT { unsigned short vt, a, b, c; hyper value; } VARIANT;

[object, uuid(00000000-0000-0000-C000-000000000046), pointer_default(unique)]
interface IUnknown {
    HRESULT QueryInterface(void);
    HRESULT AddRef(void);
    HRESULT Release(void);
}

[object, uuid(00020400-0000-0000-C000-000000000046), pointer_default(unique)]
interface IDispatch : IUnknown {
    HRESULT GetTypeInfoCount(void);
    HRESULT GetTypeInfo(void);
    HRESULT GetIDsOfNames(void);
    HRESULT Invoke(void);
}

)";

std::string Uuid(const GUID& id) {
    char text[48];
    std::snprintf(text, sizeof text, "uuid(%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x)",
                  static_cast<unsigned>(id.Data1), id.Data2, id.Data3, id.Data4[0], id.Data4[1],
                  id.Data4[2], id.Data4[3], id.Data4[4], id.Data4[5], id.Data4[6], id.Data4[7]);
    return text;
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

// The attribute with a comma before it; empty for an empty text.
std::string Help(std::string_view text) {
    return text.empty() ? std::string() : ", helpstring(" + Quoted(text) + ")";
}

std::string ElementType(VARTYPE type) {
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
            return "BSTR";
        case VT_BOOL:
            return "VARIANT_BOOL";
        case VT_VARIANT:
            return "VARIANT";
        case VT_DISPATCH:
            return "IDispatch*";
        case VT_UNKNOWN:
            return "IUnknown*";
        default:
            throw std::invalid_argument("no type of the library: " + std::to_string(type));
    }
}

std::string TypeName(const ValueType& type) {
    if (type.Type & VT_ARRAY)
        return std::string("SAFEARRAY(") +
               ElementType(static_cast<VARTYPE>(type.Type & ~VT_ARRAY)) + ")";
    if (type.Enumeration) return type.Enumeration().Name;
    if (type.Interface) return std::string(type.Interface().Name) + "*";
    return ElementType(type.Type);
}

std::string DefaultText(const ParameterDescription& parameter) {
    const Variant value = parameter.MakeDefault();
    switch (value.vt) {
        case VT_BSTR:
            return Quoted(std::get<const char*>(parameter.Default));
        case VT_R4: {
            // The compiler copies the bits of a number and reads no other kind of literal.
            char bits[16];
            std::snprintf(bits, sizeof bits, "0x%08x", std::bit_cast<std::uint32_t>(value.fltVal));
            return bits;
        }
        case VT_R8:
            throw std::invalid_argument(std::string("the compiler cannot write the default of ") +
                                        parameter.Name + ": use single precision");
        default:
            return std::to_string(std::get<std::int32_t>(parameter.Default));
    }
}

std::string ParameterText(const ParameterDescription& parameter) {
    std::string attributes = "in";
    if (parameter.Way == Direction::Out) attributes = "out";
    if (parameter.Way == Direction::InOut) attributes = "in, out";
    if (parameter.Way == Direction::Result) attributes = "out, retval";
    if (parameter.IsOptional())
        attributes += ", optional, defaultvalue(" + DefaultText(parameter) + ")";
    const bool address = parameter.Way != Direction::In || parameter.ByAddress;
    return std::string("[") + attributes + "] " + TypeName(parameter.Type) +
           (address ? "* " : " ") + parameter.Name;
}

const char* KindAttribute(INVOKEKIND kind) {
    switch (kind) {
        case INVOKE_PROPERTYGET:
            return ", propget";
        case INVOKE_PROPERTYPUT:
            return ", propput";
        case INVOKE_PROPERTYPUTREF:
            return ", propputref";
        default:
            return "";
    }
}

std::string MemberText(const MemberDescription& member, const char* result) {
    std::string text = std::string("        [id(") + std::to_string(member.Id) + ")" +
                       KindAttribute(member.Kind) + Help(member.Help) + "]\n        " + result +
                       " " + member.Name + "(";
    for (std::size_t i = 0; i < member.Parameters.size(); ++i)
        text += std::string(i ? ", " : "") + ParameterText(member.Parameters[i]);
    return text + (member.Parameters.empty() ? "void);\n" : ");\n");
}

// A slot that is kept for a member to come. The identifier is one that no member has.
std::string ReservedText(int slot) {
    constexpr DISPID kFirstReserved = 0x60020000;
    return "        [id(" + std::to_string(kFirstReserved + slot) +
           "), hidden, restricted]\n        HRESULT Reserved" + std::to_string(slot) + "(void);\n";
}

std::string InterfaceText(const InterfaceDescription& description) {
    std::string text = std::string("    [") + Uuid(description.Id) + Help(description.Help);
    if (description.Events) {
        text += "]\n    dispinterface " + std::string(description.Name) +
                " {\n        properties:\n        methods:\n";
        for (const MemberDescription& member : description.Members)
            text += MemberText(member, "void");
    } else {
        text += ", object, dual, oleautomation, pointer_default(unique)]\n    interface " +
                std::string(description.Name) + " : IDispatch {\n";
        int slot = kDispatchSlots;
        for (const MemberDescription& member : description.Members) {
            for (; slot < member.Slot; ++slot)
                text += ReservedText(slot);
            text += MemberText(member, "HRESULT");
            ++slot;
        }
    }
    return text + "    }\n\n";
}

std::string EnumerationText(const EnumerationDescription& enumeration) {
    std::string text = std::string("    typedef [") + Uuid(enumeration.Id) +
                       Help(enumeration.Help) + ", v1_enum] enum " + enumeration.Name + " {\n";
    for (const auto& member : enumeration.Members)
        text += std::string("        ") + member.Name + " = " + std::to_string(member.Value) +
                (&member == &enumeration.Members.back() ? "\n" : ",\n");
    return text + "    } " + enumeration.Name + ";\n\n";
}

std::string ClassText(const ClassDescription& one) {
    std::string text = std::string("    [") + Uuid(one.Id) + Help(one.Help) +
                       (one.Control ? ", control" : "") + "]\n    coclass " + one.Name +
                       " {\n        [default] interface " + one.Default().Name + ";\n";
    if (one.Source)
        text += std::string("        [default, source] dispinterface ") + one.Source().Name + ";\n";
    return text + "    }\n\n";
}

}  // namespace

std::string IdlOf(const LibraryDescription& library) {
    std::string text = kSystemTypes;
    text += std::string("[") + Uuid(library.Id) + ", version(" + std::to_string(library.Major) +
            "." + std::to_string(library.Minor) + ")" + Help(library.Help) +
            ", control]\nlibrary " + library.Name + " {\n    importlib(\"stdole2.tlb\");\n\n";
    for (const auto& enumeration : library.Enumerations)
        text += EnumerationText(enumeration());
    // Interfaces may name each other in any order.
    for (const auto& description : library.Interfaces)
        if (!description().Events)
            text += std::string("    interface ") + description().Name + ";\n";
    text += "\n";
    for (const auto& description : library.Interfaces)
        text += InterfaceText(description());
    for (const ClassDescription& one : library.Classes)
        text += ClassText(one);
    return text + "}\n";
}

}  // namespace mavrin2::automation
