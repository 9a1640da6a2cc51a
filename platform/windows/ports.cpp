#include "platform/ports.h"

#include "platform/automation.h"
#include "platform/windows/clipboard.h"
#include "platform/windows/file_system.h"
#include "platform/windows/fonts.h"
#include "platform/windows/instance_lock.h"
#include "platform/windows/wide.h"

namespace mavrin2::platform {
namespace {

class MessageBoxDialog final : public ErrorDialog {
public:
    void Show(const std::string& caption, const std::string& text) override {
        ::MessageBoxW(::GetActiveWindow(), WideOf(text).c_str(), WideOf(caption).c_str(),
                      MB_OK | MB_ICONERROR);
    }
};

}  // namespace

Ports SystemPorts() {
    Ports ports;
    ports.Files = WindowsFileSystem();
    ports.Errors = std::make_shared<MessageBoxDialog>();
    ports.NewInstanceLock = [] { return WindowsInstanceLock(L"KovMavrin2.Instance"); };
    ports.Fonts = WindowsFonts();
    ports.Colors = {.ButtonFace = ::GetSysColor(COLOR_3DFACE),
                    .Highlight = ::GetSysColor(COLOR_3DHIGHLIGHT),
                    .Shadow = ::GetSysColor(COLOR_APPWORKSPACE)};
    ports.Clipboard = WindowsClipboard();
    return ports;
}

}  // namespace mavrin2::platform
