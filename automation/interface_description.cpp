#include "automation/interface_description.h"

#include <algorithm>

#include "automation/text.h"

namespace mavrin2::automation {

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
