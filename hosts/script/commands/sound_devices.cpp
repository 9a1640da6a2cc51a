#include "hosts/script/commands/sound_devices.h"

#include <algorithm>
#include <charconv>

#include "hosts/script/commands/command.h"

namespace mavrin2::script {

SoundDevices::SoundDevices(IDispatch& control, std::string_view property)
    : devices_(binding::LateBound(automation::ComPtr<IDispatch>(&control)).Part(property)) {}

std::vector<std::string> SoundDevices::Names() const {
    const std::int32_t selected = devices_.Number("Num");
    std::vector<std::string> names;
    for (std::int32_t number = 1; number <= devices_.Number("Count"); ++number) {
        devices_.Put("Num", number);
        names.push_back(devices_.Text("Name"));
    }
    devices_.Put("Num", selected);
    return names;
}

void SoundDevices::Choose(const CommandLine& line) const {
    const auto text = line.Value(kDevice);
    if (!text) return;
    const std::vector<std::string> names = Names();
    const auto count = static_cast<std::int32_t>(names.size());
    std::int32_t number = 0;
    const auto parsed = std::from_chars(text->data(), text->data() + text->size(), number);
    if (parsed.ec != std::errc() || parsed.ptr != text->data() + text->size())
        number = static_cast<std::int32_t>(std::ranges::find(names, *text) - names.begin()) + 1;
    if (number < 1 || number > count)
        throw Failure(*text, "no such device; `mavrin2 devices` lists them");
    devices_.Put("Num", number);
}

}  // namespace mavrin2::script
