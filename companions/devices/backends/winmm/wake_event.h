#pragma once

#include <chrono>
#include <new>
#include <optional>

#include "platform/automation.h"

namespace mavrin2::devices {

// Wakes the one thread that waits for it. May be set by any thread and by the system.
class WakeEvent {
public:
    WakeEvent() : handle_(::CreateEventW(nullptr, FALSE, FALSE, nullptr)) {
        if (!handle_) throw std::bad_alloc();
    }
    WakeEvent(const WakeEvent&) = delete;
    WakeEvent& operator=(const WakeEvent&) = delete;
    ~WakeEvent() { ::CloseHandle(handle_); }

    HANDLE Handle() const { return handle_; }
    void Set() { ::SetEvent(handle_); }
    // Until it is set, or for that long.
    void Wait(std::optional<std::chrono::milliseconds> limit = std::nullopt) {
        ::WaitForSingleObject(handle_, limit ? static_cast<DWORD>(limit->count()) : INFINITE);
    }

private:
    HANDLE handle_;
};

}  // namespace mavrin2::devices
