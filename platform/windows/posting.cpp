#include "platform/posting.h"

#include <algorithm>
#include <memory>
#include <new>

#include "platform/automation.h"
#include "platform/common/work_queue.h"

namespace mavrin2::platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr UINT kWorkWaits = WM_APP;
constexpr wchar_t kWindowClass[] = L"KovMavrin2.Posting";

// Work comes by a window's message, so that a host's own message loop runs it too; the window is
// one for messages only.
class MessageQueue final : public WorkQueue {
public:
    MessageQueue() {
        WNDCLASSW description = {};
        const HINSTANCE module = PinnedModule();
        description.lpfnWndProc = &MessageQueue::Receive;
        description.hInstance = module;
        description.lpszClassName = kWindowClass;
        // It may be there already: then this fails and that one serves.
        ::RegisterClassW(&description);
        window_ = ::CreateWindowExW(0, kWindowClass, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                    module, nullptr);
        if (window_) ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }

    void Pump(std::chrono::milliseconds duration) override {
        // Far beyond any host's patience, and safe to add to a time.
        constexpr std::chrono::milliseconds longest = std::chrono::hours(24 * 20);
        const auto end = Clock::now() + std::min(duration, longest);
        for (;;) {
            // Their work is done now; left there, they would pile up.
            MSG message = {};
            while (::PeekMessageW(&message, window_, kWorkWaits, kWorkWaits, PM_REMOVE)) {
            }
            RunPresent();
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
            if (left.count() <= 0) return;
            ::MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(left.count()), QS_ALLINPUT,
                                          MWMO_INPUTAVAILABLE);
            if (!DispatchMessages()) return;
        }
    }

    int Descriptor() const override { return -1; }

    // Of the owning thread.
    void End() {
        Close();
        if (window_) ::DestroyWindow(window_);
    }

private:
    // The window's procedure and what ends the queue with its thread are in this module, which
    // therefore stays loaded from now on, whatever it answers when it is asked.
    static HINSTANCE PinnedModule() {
        HMODULE module = nullptr;
        ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                             kWindowClass, &module);
        return module;
    }

    static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM first, LPARAM second) {
        if (message != kWorkWaits) return ::DefWindowProcW(window, message, first, second);
        if (auto* queue =
                reinterpret_cast<MessageQueue*>(::GetWindowLongPtrW(window, GWLP_USERDATA)))
            queue->RunPresent();
        return 0;
    }

    // As any message loop of this thread does; false when the program is to end.
    static bool DispatchMessages() {
        MSG message = {};
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {
                ::PostQuitMessage(static_cast<int>(message.wParam));
                return false;
            }
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
        return true;
    }

    bool Wake() override { return window_ && ::PostMessageW(window_, kWorkWaits, 0, 0) != 0; }

    HWND window_ = nullptr;
};

// The queue of a thread, which others may hold longer than the thread lives.
using Held = std::shared_ptr<MessageQueue>;

void NTAPI EndQueue(void* value) {
    const std::unique_ptr<Held> held(static_cast<Held*>(value));
    if (held) (*held)->End();
}

// The system's own place for what belongs to a thread: the compiler's thread_local objects lose
// their memory before their destructors run.
Held& HeldByThisThread() {
    static const DWORD place = ::FlsAlloc(&EndQueue);
    auto* held = static_cast<Held*>(::FlsGetValue(place));
    if (!held) {
        auto made = std::make_unique<Held>(std::make_shared<MessageQueue>());
        if (!::FlsSetValue(place, made.get())) throw std::bad_alloc();
        held = made.release();
    }
    return *held;
}

}  // namespace

std::shared_ptr<PostingQueue> PostingQueue::OfThisThread() {
    return HeldByThisThread();
}

}  // namespace mavrin2::platform
