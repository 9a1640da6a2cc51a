#include <cstdio>

#include "hosts/script/commands/command.h"
#include "hosts/script/commands/command_line.h"
#include "hosts/script/commands/editor.h"
#include "hosts/script/commands/sound_devices.h"

namespace mavrin2::script {
namespace {

constexpr const char* kHelp =
    R"(Usage: mavrin2 devices

Lists the devices for playback and for recording, with the numbers by which --device takes them.
Device 1 is the sound server's default.

Exit codes: 0 success, 1 failure, 2 usage error.
)";

void Print(const char* title, const std::vector<std::string>& names) {
    std::printf("%s\n", title);
    for (std::size_t i = 0; i < names.size(); ++i)
        std::printf("  %zu  %s\n", i + 1, names[i].c_str());
}

int Run(const CommandLine& line) {
    if (!line.Operands().empty()) throw UsageError("devices takes no arguments");
    const Editor editor;
    Print("Playback", SoundDevices(editor.Control(), "DeviceOutput").Names());
    Print("Recording", SoundDevices(editor.Control(), "DeviceInput").Names());
    return kSuccess;
}

}  // namespace

const Command kDevicesCommand{"devices", kHelp, {}, false, &Run};

}  // namespace mavrin2::script
