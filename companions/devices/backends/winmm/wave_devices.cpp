#include "companions/devices/backends/winmm/wave_devices.h"

#include <algorithm>
#include <cwchar>

#include "automation/text.h"

namespace mavrin2::devices {
namespace {

// The calls of one direction.
class WaveCalls {
public:
    explicit WaveCalls(Direction direction) : output_(direction == Direction::Output) {}

    UINT Count() const { return output_ ? ::waveOutGetNumDevs() : ::waveInGetNumDevs(); }

    MMRESULT Send(UINT device, UINT message, DWORD_PTR first, DWORD_PTR second) const {
        const auto handle = static_cast<UINT_PTR>(device);
        return output_
                   ? ::waveOutMessage(reinterpret_cast<HWAVEOUT>(handle), message, first, second)
                   : ::waveInMessage(reinterpret_cast<HWAVEIN>(handle), message, first, second);
    }

    std::optional<std::string> Description(UINT device) const {
        return output_ ? DescriptionBy<WAVEOUTCAPSW>(::waveOutGetDevCapsW, device)
                       : DescriptionBy<WAVEINCAPSW>(::waveInGetDevCapsW, device);
    }

    // What the system knows a device by, also when it comes again. Empty if the driver has none.
    std::string Identity(UINT device) const {
        ULONG bytes = 0;
        if (Send(device, DRV_QUERYFUNCTIONINSTANCEIDSIZE, reinterpret_cast<DWORD_PTR>(&bytes), 0) !=
                MMSYSERR_NOERROR ||
            bytes < sizeof(wchar_t))
            return {};
        std::wstring text(bytes / sizeof(wchar_t), L'\0');
        if (Send(device, DRV_QUERYFUNCTIONINSTANCEID, reinterpret_cast<DWORD_PTR>(text.data()),
                 bytes) != MMSYSERR_NOERROR)
            return {};
        return automation::ToUtf8(text.c_str());
    }

    // The device that users have chosen; the first where the system does not say.
    UINT Preferred() const {
        DWORD device = 0;
        DWORD flags = 0;
        const MMRESULT result =
            Send(WAVE_MAPPER, DRVM_MAPPER_PREFERRED_GET, reinterpret_cast<DWORD_PTR>(&device),
                 reinterpret_cast<DWORD_PTR>(&flags));
        return result == MMSYSERR_NOERROR && device < Count() ? device : 0;
    }

private:
    template <class Capabilities, class Get>
    static std::optional<std::string> DescriptionBy(Get get, UINT device) {
        Capabilities found{};
        if (get(device, &found, sizeof found) != MMSYSERR_NOERROR) return std::nullopt;
        return automation::ToUtf8({found.szPname, ::wcsnlen(found.szPname, MAXPNAMELEN)});
    }

    bool output_;
};

}  // namespace

std::vector<WaveDevice> WaveDevices(Direction direction) {
    const WaveCalls calls(direction);
    const UINT preferred = calls.Preferred();
    std::vector<WaveDevice> devices;
    for (UINT number = 0; number < calls.Count(); ++number) {
        const auto description = calls.Description(number);
        if (!description) continue;
        std::string name = calls.Identity(number);
        if (name.empty()) {
            const auto alike = std::count_if(
                devices.begin(), devices.end(),
                [&](const WaveDevice& one) { return one.Description == *description; });
            name = *description + " #" + std::to_string(alike + 1);
        }
        devices.push_back({number, std::move(name), *description, number == preferred});
    }
    return devices;
}

std::optional<UINT> WaveDeviceNumber(Direction direction, const std::string& name) {
    if (name.empty()) return WAVE_MAPPER;
    const auto devices = WaveDevices(direction);
    const auto found = std::find_if(devices.begin(), devices.end(),
                                    [&](const WaveDevice& one) { return one.Name == name; });
    return found == devices.end() ? std::nullopt : std::optional(found->Number);
}

}  // namespace mavrin2::devices
