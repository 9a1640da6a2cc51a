#include "hosts/binding/call_error.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace mavrin2::binding {
namespace {

struct Entry {
    HRESULT Status;
    const char* Text;
};

constexpr Entry kTexts[] = {
    {E_NOTIMPL, "Not implemented."},
    {E_NOINTERFACE, "No such interface."},
    {E_POINTER, "A value is missing."},
    {E_ABORT, "Stopped."},
    {E_FAIL, "Failed."},
    {E_UNEXPECTED, "Unexpected failure."},
    {E_ACCESSDENIED, "Access denied."},
    {E_OUTOFMEMORY, "Out of memory."},
    {E_INVALIDARG, "Invalid argument."},
    {DISP_E_MEMBERNOTFOUND, "No such member, or not in this direction."},
    {DISP_E_PARAMNOTFOUND, "No such parameter."},
    {DISP_E_TYPEMISMATCH, "Wrong type."},
    {DISP_E_UNKNOWNNAME, "Unknown name."},
    {DISP_E_BADVARTYPE, "Wrong type."},
    {DISP_E_EXCEPTION, "Failed."},
    {DISP_E_OVERFLOW, "Out of range."},
    {DISP_E_BADINDEX, "Invalid index."},
    {DISP_E_BADPARAMCOUNT, "Wrong number of arguments."},
    {DISP_E_PARAMNOTOPTIONAL, "An argument is missing."},
    {CLASS_E_NOAGGREGATION, "Cannot be aggregated."},
    {CLASS_E_CLASSNOTAVAILABLE, "The module does not have this class."},
    {REGDB_E_CLASSNOTREG, "The class is not registered."},
    {CO_E_CLASSSTRING, "No component of this name is registered."},
    {CO_E_DLLNOTFOUND, "The component's module cannot be loaded."},
    {CO_E_ERRORINDLL, "The component's module is damaged."},
    {CONNECT_E_NOCONNECTION, "No such connection."},
    {CONNECT_E_CANNOTCONNECT, "Cannot be connected."},
};

}  // namespace

std::string StatusText(HRESULT status) {
    const auto* const found =
        std::ranges::find_if(kTexts, [&](const Entry& entry) { return entry.Status == status; });
    return found == std::end(kTexts) ? "Unknown error." : found->Text;
}

std::string StatusNumber(HRESULT status) {
    char text[16] = {};
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(status));
    return text;
}

}  // namespace mavrin2::binding
