#pragma once

#include <cstdint>
#include <vector>

namespace mavrin2::devices {

// The volumes of a device's channels, from 0 to `Full`.
class ChannelVolumes {
public:
    ChannelVolumes(std::vector<std::uint32_t> channels, std::uint32_t full)
        : channels_(std::move(channels)), full_(full) {}

    const std::vector<std::uint32_t>& Channels() const { return channels_; }
    std::int32_t Percent(std::size_t channel) const;
    std::int32_t LoudestPercent() const;
    bool HasBalance() const { return channels_.size() == 2; }
    // −100 … 100; 0 if there is only one channel, or more than two.
    std::int32_t Balance() const;

    // The loudest channel gets this volume, and the others keep their relation to it.
    void SetLoudest(std::int32_t percent);
    // The louder channel keeps its volume. No effect where there is no balance.
    void SetBalance(std::int32_t balance);
    // No effect on a channel that does not exist.
    void SetChannel(std::size_t channel, std::int32_t percent);

private:
    std::uint32_t Loudest() const;
    std::uint32_t ValueOf(std::int32_t percent) const;

    std::vector<std::uint32_t> channels_;
    std::uint32_t full_;
};

}  // namespace mavrin2::devices
