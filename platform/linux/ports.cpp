#include "platform/ports.h"

#include <cstdio>

#include "platform/linux/clipboard.h"
#include "platform/linux/file_system.h"
#include "platform/linux/fonts.h"
#include "platform/linux/instance_lock.h"

namespace mavrin2::platform {
namespace {

// There is no desktop to ask; the program's user sees its standard error.
class StandardErrorDialog final : public ErrorDialog {
public:
    void Show(const std::string& caption, const std::string& text) override {
        const std::string line = caption + ": " + text + "\n";
        std::fwrite(line.data(), 1, line.size(), stderr);
    }
};

}  // namespace

Ports SystemPorts() {
    Ports ports;
    ports.Files = LinuxFileSystem();
    ports.Errors = std::make_shared<StandardErrorDialog>();
    ports.NewInstanceLock = [] { return LinuxInstanceLock(InstanceLockFiles()); };
    ports.Fonts = LinuxFonts();
    // What a plain desktop has.
    ports.Colors = {.ButtonFace = 0xC8D0D4, .Highlight = 0xFFFFFF, .Shadow = 0x808080};
    ports.Clipboard = LinuxClipboard(ClipboardFiles());
    return ports;
}

}  // namespace mavrin2::platform
