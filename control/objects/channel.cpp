#include "control/objects/channel.h"

#include <algorithm>

namespace mavrin2::objects {

using editor::ChannelSwitches;

namespace {

// The flag of the channel that the host speaks of; null for none.
std::int16_t* FlagOf(ChannelSwitches& switches,
                     std::array<std::int16_t, ChannelSwitches::Most> ChannelSwitches::*flags) {
    if (switches.Num < 1 || switches.Num > ChannelSwitches::Most) return nullptr;
    return &(switches.*flags)[static_cast<std::size_t>(switches.Num) - 1];
}

}  // namespace

STDMETHODIMP CMavrin2Channel::get_Count(SHORT* Value) {
    return parts_.Read(
        Value, [](const Parts& parts) { return parts.Format.Channels; }, SHORT{0});
}

STDMETHODIMP CMavrin2Channel::get_Num(SHORT* Value) {
    return parts_.Read(
        Value,
        [](const Parts& parts) {
            parts.Switches.Num = static_cast<std::int16_t>(
                std::min<std::int32_t>(parts.Switches.Num, parts.Format.Channels));
            return parts.Switches.Num;
        },
        SHORT{0});
}

STDMETHODIMP CMavrin2Channel::put_Num(SHORT Value) {
    return parts_.Do([&](Parts& parts) { parts.Switches.Num = std::max<SHORT>(Value, 1); });
}

HRESULT CMavrin2Channel::ReadFlag(SHORT* target, Flags ChannelSwitches::*flags) const {
    return parts_.Read(
        target,
        [&](const Parts& parts) {
            const std::int16_t* flag = FlagOf(parts.Switches, flags);
            return flag ? *flag : std::int16_t{0};
        },
        SHORT{0});
}

STDMETHODIMP CMavrin2Channel::get_Visible(SHORT* Value) {
    return ReadFlag(Value, &ChannelSwitches::Visible);
}

STDMETHODIMP CMavrin2Channel::put_Visible(SHORT Value) {
    return parts_.Do([&](Parts& parts) {
        std::int16_t* flag = FlagOf(parts.Switches, &ChannelSwitches::Visible);
        if (!flag || *flag == Value) return;
        *flag = Value;
        parts.Switches.Recount(parts.Format.Channels);
        parts.View.VisibleChannelsChanged();
    });
}

STDMETHODIMP CMavrin2Channel::get_Operation(SHORT* Value) {
    return ReadFlag(Value, &ChannelSwitches::Operation);
}

STDMETHODIMP CMavrin2Channel::put_Operation(SHORT Value) {
    return parts_.Do([&](Parts& parts) {
        std::int16_t* flag = FlagOf(parts.Switches, &ChannelSwitches::Operation);
        if (!flag) return;
        *flag = Value;
        parts.Switches.Recount(parts.Format.Channels);
        parts.View.OperationChannelsChanged();
    });
}

}  // namespace mavrin2::objects
