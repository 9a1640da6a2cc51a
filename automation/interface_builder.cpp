#include "automation/interface_builder.h"

#include <stdexcept>

namespace mavrin2::automation {
namespace {

constexpr int kDispatchSlots = 7;

[[noreturn]] void Disagree(const char* interfaceName, const char* member, const char* why) {
    throw std::logic_error(std::string(interfaceName) + "." + member + ": " + why);
}

}  // namespace

void DescriptionBuilder::Add(MemberDescription member) {
    // Properties of one name stand together in the plan as one entry.
    std::size_t at = planned_;
    while (at < plan_.size() && std::string_view(plan_[at].Name) != member.Name)
        ++at;
    if (at == plan_.size())
        Disagree(description_.Name, member.Name, "not in the plan, or not in its order");
    planned_ = at;
    member.Id = plan_[at].Id;
    if (description_.Find(member.Id, member.Kind))
        Disagree(description_.Name, member.Name, "described twice");
    const int slot = kDispatchSlots + static_cast<int>(description_.Members.size());
    if (!description_.Events && member.Slot != slot)
        Disagree(description_.Name, member.Name, "stands elsewhere in the virtual table");
    description_.Members.push_back(std::move(member));
}

void CheckParameterList(const char* member, std::span<const Parameter> parameters,
                        std::span<const bool> addresses) {
    if (parameters.size() != addresses.size())
        throw std::logic_error(std::string(member) + ": wrong number of parameters described");
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const bool out = parameters[i].Way != Direction::In;
        const bool array = (parameters[i].Explicit & VT_ARRAY) != 0;
        if (!array && out != addresses[i])
            throw std::logic_error(std::string(member) + ": direction of " + parameters[i].Name);
        if (parameters[i].Way == Direction::Result && i + 1 != parameters.size())
            throw std::logic_error(std::string(member) + ": the result stands last");
    }
}

EventsBuilder& EventsBuilder::Event(const char* name, const char* help,
                                    std::initializer_list<Argument> arguments) {
    MemberDescription member{name, DISPID_UNKNOWN, INVOKE_FUNC, help, {}, nullptr, -1};
    for (const Argument& argument : arguments)
        member.Parameters.push_back({argument.Name, {argument.Type}});
    builder_.Add(std::move(member));
    return *this;
}

}  // namespace mavrin2::automation
