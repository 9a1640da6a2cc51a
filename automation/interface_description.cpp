#include "automation/interface_description.h"

#include <algorithm>

#include "automation/guarded.h"
#include "automation/text.h"

namespace mavrin2::automation {

Variant ParameterDescription::MakeDefault() const {
    Variant given;
    if (const auto* number = std::get_if<std::int32_t>(&Default)) {
        // Booleans are 16-bit numbers that keep their bits.
        given = Type.Type == VT_BOOL ? Variant::Int16(static_cast<SHORT>(*number))
                                     : Variant::Int32(*number);
        if (Type.Type == VT_BOOL) given.vt = VT_BOOL;
    } else if (const auto* real = std::get_if<double>(&Default)) {
        given.vt = VT_R8;
        given.dblVal = *real;
    } else if (const auto* text = std::get_if<const char*>(&Default)) {
        given.bstrVal = NewBstr(std::string_view(*text));
        given.vt = VT_BSTR;
    }
    ThrowIfFailed(VariantChangeType(&given, &given, 0, Type.Type));
    return given;
}

std::size_t InterfaceDescription::SlotCount() const {
    return static_cast<std::size_t>(Members.empty() ? kDispatchSlots : Members.back().Slot + 1);
}

const MemberDescription* InterfaceDescription::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(
        Members, [&](const MemberDescription& m) { return EqualIgnoringCase(m.Name, name); });
    return found == Members.end() ? nullptr : &*found;
}

const MemberDescription* InterfaceDescription::Find(DISPID id, int kinds) const {
    const auto found = std::ranges::find_if(
        Members, [&](const MemberDescription& m) { return m.Id == id && (m.Kind & kinds) != 0; });
    return found == Members.end() ? nullptr : &*found;
}

}  // namespace mavrin2::automation
