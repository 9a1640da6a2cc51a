#include "platform/windows/tool_tip.h"

#include <commctrl.h>

namespace mavrin2::platform {
namespace {

constexpr int kWidestTip = 50;  // pixels, before a text is broken into lines

TTTOOLINFOW ToolOf(HWND owner) {
    TTTOOLINFOW tool = {};
    tool.cbSize = sizeof(tool);
    tool.hwnd = owner;
    tool.uId = 1;
    return tool;
}

LPARAM Parameter(const void* value) {
    return reinterpret_cast<LPARAM>(value);
}

}  // namespace

ToolTip::~ToolTip() {
    if (tip_) ::DestroyWindow(tip_);
}

bool ToolTip::Create(HWND owner) {
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&classes);
    tip_ = ::CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT,
                             CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, nullptr,
                             nullptr);
    if (!tip_) return false;
    ::SetWindowPos(tip_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    wchar_t none[] = L"";
    TTTOOLINFOW tool = ToolOf(owner);
    tool.lpszText = none;
    ::SendMessageW(tip_, TTM_ADDTOOLW, 0, Parameter(&tool));
    ::SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, kWidestTip);
    return true;
}

void ToolTip::Show(HWND owner, const std::wstring& text, POINT at, MSG message) {
    if (!tip_ && (text.empty() || !Create(owner))) return;
    TTTOOLINFOW tool = ToolOf(owner);
    tool.rect = {at.x, at.y, at.x + 1, at.y + 1};
    ::SendMessageW(tip_, TTM_NEWTOOLRECTW, 0, Parameter(&tool));
    std::wstring shown = text;
    tool.lpszText = shown.data();
    ::SendMessageW(tip_, TTM_UPDATETIPTEXTW, 0, Parameter(&tool));
    ::SendMessageW(tip_, TTM_RELAYEVENT, 0, Parameter(&message));
}

}  // namespace mavrin2::platform
