#include "tests/support/windows/message_boxes.h"

namespace mavrin2::tests {
namespace {

// Hooks are called without data of their owner.
std::vector<std::wstring> seenBoxes;
HWND lastBox = nullptr;

std::wstring KindOf(HWND window) {
    wchar_t kind[50] = {};
    ::GetClassNameW(window, kind, 50);
    return kind;
}

std::wstring TextOf(HWND window) {
    wchar_t text[200] = {};
    ::GetWindowTextW(window, text, 200);
    return text;
}

BOOL CALLBACK Describe(HWND child, LPARAM) {
    seenBoxes.back() += L" | " + KindOf(child) + L": " + TextOf(child);
    return TRUE;
}

LRESULT CALLBACK Watch(int code, WPARAM first, LPARAM second) {
    const HWND box = reinterpret_cast<HWND>(first);
    // Every dialog is of this class; it may be activated more than once.
    if (code == HCBT_ACTIVATE && KindOf(box) == L"#32770" && box != lastBox) {
        lastBox = box;
        seenBoxes.push_back(TextOf(box));
        ::EnumChildWindows(box, &Describe, 0);
        ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    }
    return ::CallNextHookEx(nullptr, code, first, second);
}

}  // namespace

MessageBoxes::MessageBoxes()
    : hook_(::SetWindowsHookExW(WH_CBT, &Watch, nullptr, ::GetCurrentThreadId())) {
    seenBoxes.clear();
    lastBox = nullptr;
}

MessageBoxes::~MessageBoxes() {
    ::UnhookWindowsHookEx(hook_);
}

const std::vector<std::wstring>& MessageBoxes::Seen() const {
    return seenBoxes;
}

}  // namespace mavrin2::tests
