#include "companions/devices/backends/winmm/channel_volumes.h"

#include <algorithm>

namespace mavrin2::devices {
namespace {

// value · part / whole, rounded; none of a whole that is 0.
std::uint32_t Scaled(std::uint32_t value, std::uint64_t part, std::uint64_t whole) {
    return whole == 0 ? 0 : static_cast<std::uint32_t>((value * part + whole / 2) / whole);
}

}  // namespace

std::uint32_t ChannelVolumes::Loudest() const {
    return channels_.empty() ? 0 : *std::max_element(channels_.begin(), channels_.end());
}

std::uint32_t ChannelVolumes::ValueOf(std::int32_t percent) const {
    return Scaled(full_, static_cast<std::uint64_t>(std::clamp(percent, 0, 100)), 100);
}

std::int32_t ChannelVolumes::Percent(std::size_t channel) const {
    return static_cast<std::int32_t>(Scaled(100, channels_[channel], full_));
}

std::int32_t ChannelVolumes::LoudestPercent() const {
    return static_cast<std::int32_t>(Scaled(100, Loudest(), full_));
}

std::int32_t ChannelVolumes::Balance() const {
    if (!HasBalance() || channels_[0] == channels_[1]) return 0;
    const auto quieter =
        static_cast<std::int32_t>(Scaled(100, std::min(channels_[0], channels_[1]), Loudest()));
    return channels_[0] > channels_[1] ? quieter - 100 : 100 - quieter;
}

void ChannelVolumes::SetLoudest(std::int32_t percent) {
    const std::uint32_t before = Loudest();
    const std::uint32_t after = ValueOf(percent);
    for (std::uint32_t& channel : channels_)
        channel = before == 0 ? after : Scaled(channel, after, before);
}

void ChannelVolumes::SetBalance(std::int32_t balance) {
    if (!HasBalance()) return;
    const std::uint32_t loudest = Loudest();
    const std::int32_t limited = std::clamp(balance, -100, 100);
    channels_[0] = Scaled(loudest, static_cast<std::uint64_t>(100 - std::max(limited, 0)), 100);
    channels_[1] = Scaled(loudest, static_cast<std::uint64_t>(100 + std::min(limited, 0)), 100);
}

void ChannelVolumes::SetChannel(std::size_t channel, std::int32_t percent) {
    if (channel < channels_.size()) channels_[channel] = ValueOf(percent);
}

}  // namespace mavrin2::devices
