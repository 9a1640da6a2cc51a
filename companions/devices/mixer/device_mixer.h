#pragma once

#include <string>
#include <vector>

#include "companions/devices/server/server_access.h"

namespace mavrin2::devices {

// The devices of one direction as hosts see them: one is selected, and of it one line. Device 1 is
// the server's default, the others follow in the server's order. All numbers are from 1 and
// limited.
class DeviceMixer {
public:
    DeviceMixer(ServerAccess& servers, Direction direction)
        : servers_(servers), direction_(direction) {}

    std::int32_t DeviceCount();
    std::string DeviceName();
    std::int32_t DeviceNumber();
    void SelectDevice(std::int32_t number);
    // As a server wants it for a stream: empty for the default device.
    const std::string& SelectedDevice() const { return selected_; }

    std::int32_t Volume();
    void SetVolume(std::int32_t percent);
    bool HasBalance();
    std::int32_t Balance();
    void SetBalance(std::int32_t balance);

    // The ports of the device, or one line where it has none.
    std::int32_t LineCount();
    std::string LineName();
    std::int32_t LineNumber();
    void SelectLine(std::int32_t number);
    // Whether the line is in use and not muted.
    bool IsLineOn();
    void SwitchLine(bool on);

    // The channels of the device.
    std::int32_t ControlCount();
    std::string ControlName(std::int32_t number);
    std::int32_t ControlValue(std::int32_t number);
    void SetControlValue(std::int32_t number, std::int32_t percent);

private:
    using Control = MixerChange::Control;

    // The server's devices now; what it said last while it does not answer.
    const std::vector<Device>& Refresh(Deadline deadline);
    const Device& Selected(Deadline deadline);
    std::size_t LineOf(const Device& device) const;
    bool IsOn(const Device& device) const;
    void Change(Control control, std::int32_t value, std::size_t index = 0);

    ServerAccess& servers_;
    const Direction direction_;
    std::vector<Device> devices_;  // never empty once refreshed
    std::string selected_;         // empty for the default device
    std::int32_t line_ = 1;
};

}  // namespace mavrin2::devices
