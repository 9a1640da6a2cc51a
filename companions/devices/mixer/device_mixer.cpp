#include "companions/devices/mixer/device_mixer.h"

#include <algorithm>

namespace mavrin2::devices {
namespace {

template <class Range>
std::int32_t CountOf(const Range& range) {
    return static_cast<std::int32_t>(std::min<std::size_t>(range.size(), INT16_MAX - 1));
}

}  // namespace

const std::vector<Device>& DeviceMixer::Refresh(Deadline deadline) {
    SoundServer* server = servers_.Reach(deadline);
    if (auto devices = server ? server->List(direction_, deadline) : std::nullopt)
        devices_ = std::move(*devices);
    // A server may have no device, or not have answered yet.
    if (devices_.empty()) devices_ = *servers_.Null().List(direction_, deadline);
    return devices_;
}

const Device& DeviceMixer::Selected(Deadline deadline) {
    const auto& devices = Refresh(deadline);
    auto found = devices.end();
    if (!selected_.empty())
        found = std::find_if(devices.begin(), devices.end(),
                             [&](const Device& one) { return one.Name == selected_; });
    if (found == devices.end())
        found = std::find_if(devices.begin(), devices.end(),
                             [](const Device& one) { return one.Default; });
    return found == devices.end() ? devices.front() : *found;
}

std::int32_t DeviceMixer::DeviceCount() {
    const auto& devices = Refresh(Patience());
    // The null server's device is the only one.
    const bool alone = devices.size() == 1 && servers_.Null().IsItsOwn(devices.front());
    return alone ? 1 : 1 + CountOf(devices);
}

std::string DeviceMixer::DeviceName() {
    const Device& device = Selected(Patience());
    if (!selected_.empty() || servers_.Null().IsItsOwn(device)) return device.Description;
    return "Default: " + device.Description;
}

std::int32_t DeviceMixer::DeviceNumber() {
    if (selected_.empty()) return 1;
    const auto& devices = Refresh(Patience());
    const auto found = std::find_if(devices.begin(), devices.end(),
                                    [&](const Device& one) { return one.Name == selected_; });
    return found == devices.end() ? 1 : static_cast<std::int32_t>(found - devices.begin()) + 2;
}

void DeviceMixer::SelectDevice(std::int32_t number) {
    const std::int32_t limited = std::clamp(number, 1, DeviceCount());
    line_ = 1;
    if (limited == 1)
        selected_.clear();
    else
        selected_ = devices_[static_cast<std::size_t>(limited) - 2].Name;
}

void DeviceMixer::Change(Control control, std::int32_t value, std::size_t index) {
    const Deadline deadline = Patience();
    const std::string name = Selected(deadline).Name;
    if (SoundServer* server = servers_.Reach(deadline))
        server->Change(direction_, name, {control, value, index}, deadline);
}

std::int32_t DeviceMixer::Volume() {
    return std::min(Selected(Patience()).Volume, 100);
}

void DeviceMixer::SetVolume(std::int32_t percent) {
    Change(Control::Volume, std::clamp(percent, 0, 100));
}

bool DeviceMixer::HasBalance() {
    return Selected(Patience()).HasBalance;
}

std::int32_t DeviceMixer::Balance() {
    return Selected(Patience()).Balance;
}

void DeviceMixer::SetBalance(std::int32_t balance) {
    Change(Control::Balance, std::clamp(balance, -100, 100));
}

std::int32_t DeviceMixer::LineCount() {
    return std::max(CountOf(Selected(Patience()).Ports), 1);
}

std::size_t DeviceMixer::LineOf(const Device& device) const {
    return static_cast<std::size_t>(std::clamp(line_, 1, std::max(CountOf(device.Ports), 1))) - 1;
}

std::string DeviceMixer::LineName() {
    const Device& device = Selected(Patience());
    return device.Ports.empty() ? "Master" : device.Ports[LineOf(device)].Description;
}

std::int32_t DeviceMixer::LineNumber() {
    return line_ == 1 ? 1 : static_cast<std::int32_t>(LineOf(Selected(Patience()))) + 1;
}

void DeviceMixer::SelectLine(std::int32_t number) {
    line_ = std::clamp(number, 1, LineCount());
}

bool DeviceMixer::IsOn(const Device& device) const {
    return !device.Muted && (device.Ports.empty() || device.Ports[LineOf(device)].InUse);
}

bool DeviceMixer::IsLineOn() {
    return IsOn(Selected(Patience()));
}

void DeviceMixer::SwitchLine(bool on) {
    const Deadline deadline = Patience();
    const Device device = Selected(deadline);
    SoundServer* server = servers_.Reach(deadline);
    if (!server || on == IsOn(device)) return;
    const std::size_t line = LineOf(device);
    if (on && !device.Ports.empty() && !device.Ports[line].InUse &&
        !server->Change(direction_, device.Name, {Control::Port, 0, line}, deadline))
        return;
    if (device.Muted == on)
        server->Change(direction_, device.Name, {Control::Muted, on ? 0 : 1, 0}, deadline);
}

std::int32_t DeviceMixer::ControlCount() {
    return CountOf(Selected(Patience()).Channels);
}

std::string DeviceMixer::ControlName(std::int32_t number) {
    const Device& device = Selected(Patience());
    return number >= 1 && number <= CountOf(device.Channels)
               ? device.Channels[static_cast<std::size_t>(number) - 1].Name
               : "";
}

std::int32_t DeviceMixer::ControlValue(std::int32_t number) {
    const Device& device = Selected(Patience());
    return number >= 1 && number <= CountOf(device.Channels)
               ? std::min(device.Channels[static_cast<std::size_t>(number) - 1].Percent, 100)
               : 0;
}

void DeviceMixer::SetControlValue(std::int32_t number, std::int32_t percent) {
    if (number < 1) return;
    Change(Control::Channel, std::clamp(percent, 0, 100), static_cast<std::size_t>(number) - 1);
}

}  // namespace mavrin2::devices
