#include "automation/interface_builder.h"

#include <stdexcept>
#include <string>

#include "automation/guarded.h"

namespace mavrin2::automation {

void DescriptionBuilder::Add(MemberDescription member) {
    const auto disagree = [&](const char* why) {
        throw std::logic_error(std::string(description_.Name) + "." + member.Name + ": " + why);
    };
    for (const MemberDescription& other : description_.Members) {
        const bool same = std::string_view(other.Name) == member.Name;
        if (same != (other.Id == member.Id)) disagree("one name has one identifier");
        if (same && other.Kind == member.Kind) disagree("described twice");
    }
    if (!description_.Events && member.Slot != slot_) disagree("is elsewhere in the virtual table");
    for (const ParameterDescription& parameter : member.Parameters) {
        try {
            if (parameter.IsOptional()) parameter.MakeDefault();
        } catch (const StatusError&) {
            disagree("a default that does not fit its parameter");
        }
    }
    ++slot_;
    description_.Members.push_back(std::move(member));
}

EventsBuilder& EventsBuilder::Add(DISPID id, const char* name, const char* help,
                                  std::initializer_list<Argument> arguments) {
    MemberDescription member{name, id, INVOKE_FUNC, help, {}, nullptr, -1};
    for (const Argument& argument : arguments)
        member.Parameters.push_back({argument.Name, {argument.Type}});
    builder_.Add(std::move(member));
    return *this;
}

}  // namespace mavrin2::automation
