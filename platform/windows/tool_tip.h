#pragma once

#include <string>

#include "platform/automation.h"

namespace mavrin2::platform {

// The system's tooltip for one pixel of a window, made when it is first needed.
class ToolTip {
public:
    ToolTip() = default;
    ToolTip(const ToolTip&) = delete;
    ToolTip& operator=(const ToolTip&) = delete;
    ~ToolTip();

    // Shows `text` once the mouse rests at that place of `owner`; `message` is the mouse message
    // that is being handled.
    void Show(HWND owner, const std::wstring& text, POINT at, MSG message);

private:
    bool Create(HWND owner);

    HWND tip_ = nullptr;
};

}  // namespace mavrin2::platform
