#include "companions/devices/backends/pulse/pulse_devices.h"

#include <algorithm>
#include <cmath>

namespace mavrin2::devices {
namespace {

std::int32_t PercentOf(pa_volume_t volume) {
    return static_cast<std::int32_t>((std::uint64_t{volume} * 100 + PA_VOLUME_NORM / 2) /
                                     PA_VOLUME_NORM);
}

pa_volume_t VolumeOf(std::int32_t percent) {
    return (static_cast<pa_volume_t>(std::clamp(percent, 0, 100)) * PA_VOLUME_NORM + 50) / 100;
}

// A device as the library describes it; `Info` is pa_sink_info or pa_source_info.
template <class Info>
Device Describe(const Info& info) {
    Device device;
    device.Name = info.name;
    device.Description = info.description ? info.description : info.name;
    for (std::uint32_t i = 0; i < info.n_ports; ++i)
        device.Ports.push_back(
            {info.ports[i]->name, info.ports[i]->description, info.ports[i] == info.active_port});
    for (std::uint8_t i = 0; i < info.channel_map.channels; ++i) {
        const char* name = pa_channel_position_to_pretty_string(info.channel_map.map[i]);
        device.Channels.push_back({name ? name : "", PercentOf(info.volume.values[i])});
    }
    device.Volume = PercentOf(pa_cvolume_max(&info.volume));
    device.HasBalance = pa_channel_map_can_balance(&info.channel_map) != 0;
    device.Balance = static_cast<std::int32_t>(
        std::lround(100 * pa_cvolume_get_balance(&info.volume, &info.channel_map)));
    device.Muted = info.mute != 0;
    return device;
}

struct Listing {
    std::vector<Device> Devices;
    std::string Default;
};

template <class Info>
void Add(pa_context*, const Info* info, int end, void* listing) {
    if (end == 0 && info) static_cast<Listing*>(listing)->Devices.push_back(Describe(*info));
}

// What a change needs to know of the device.
struct Mixer {
    pa_cvolume Volume{};
    pa_channel_map Map{};
    std::vector<std::string> Ports;
};

template <class Info>
void Read(pa_context*, const Info* info, int end, void* target) {
    if (end != 0 || !info) return;
    auto& mixer = *static_cast<Mixer*>(target);
    mixer.Volume = info->volume;
    mixer.Map = info->channel_map;
    for (std::uint32_t i = 0; i < info->n_ports; ++i)
        mixer.Ports.emplace_back(info->ports[i]->name);
}

// The new volumes of all channels.
std::optional<pa_cvolume> Changed(Mixer mixer, const MixerChange& change) {
    pa_cvolume& volume = mixer.Volume;
    switch (change.What) {
        case MixerChange::Control::Volume:
            pa_cvolume_scale(&volume, VolumeOf(change.Value));
            return volume;
        case MixerChange::Control::Balance:
            if (!pa_channel_map_can_balance(&mixer.Map)) return std::nullopt;
            pa_cvolume_set_balance(&volume, &mixer.Map,
                                   static_cast<float>(std::clamp(change.Value, -100, 100)) / 100);
            return volume;
        case MixerChange::Control::Channel:
            if (change.Index >= volume.channels) return std::nullopt;
            volume.values[change.Index] = VolumeOf(change.Value);
            return volume;
        default:
            return std::nullopt;
    }
}

}  // namespace

std::optional<std::vector<Device>> ListDevices(PulseConnection& connection, Direction direction,
                                               Deadline deadline) {
    Listing listing;
    const bool output = direction == Direction::Output;
    pa_context* context = connection.Context();
    const bool known = connection.Complete(deadline, [&] {
        return pa_context_get_server_info(
            context,
            output ? [](pa_context*, const pa_server_info* info, void* target) {
                if (info && info->default_sink_name)
                    static_cast<Listing*>(target)->Default = info->default_sink_name;
            } : [](pa_context*, const pa_server_info* info, void* target) {
                if (info && info->default_source_name)
                    static_cast<Listing*>(target)->Default = info->default_source_name;
            },
            &listing);
    });
    if (!known || !connection.Complete(deadline, [&] {
            return output ? pa_context_get_sink_info_list(context, Add<pa_sink_info>, &listing)
                          : pa_context_get_source_info_list(context, Add<pa_source_info>, &listing);
        }))
        return std::nullopt;
    for (Device& device : listing.Devices)
        device.Default = device.Name == listing.Default;
    return std::move(listing.Devices);
}

bool ChangeMixer(PulseConnection& connection, Direction direction, const std::string& device,
                 const MixerChange& change, Deadline deadline) {
    const bool output = direction == Direction::Output;
    pa_context* context = connection.Context();
    const char* name = device.c_str();
    if (change.What == MixerChange::Control::Muted)
        return connection.Complete(deadline, [&] {
            return (output ? pa_context_set_sink_mute_by_name : pa_context_set_source_mute_by_name)(
                context, name, change.Value != 0, nullptr, nullptr);
        });

    Mixer mixer;
    if (!connection.Complete(deadline, [&] {
            return output
                       ? pa_context_get_sink_info_by_name(context, name, Read<pa_sink_info>, &mixer)
                       : pa_context_get_source_info_by_name(context, name, Read<pa_source_info>,
                                                            &mixer);
        }))
        return false;
    if (change.What == MixerChange::Control::Port)
        return change.Index < mixer.Ports.size() && connection.Complete(deadline, [&] {
            return (output ? pa_context_set_sink_port_by_name : pa_context_set_source_port_by_name)(
                context, name, mixer.Ports[change.Index].c_str(), nullptr, nullptr);
        });
    const auto volume = Changed(mixer, change);
    return volume && connection.Complete(deadline, [&] {
        return (output ? pa_context_set_sink_volume_by_name : pa_context_set_source_volume_by_name)(
            context, name, &*volume, nullptr, nullptr);
    });
}

}  // namespace mavrin2::devices
