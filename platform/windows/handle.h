#pragma once

#include <utility>

#include "platform/automation.h"

namespace mavrin2::platform {

// A kernel object's handle, owned. Both customary invalid values count as empty.
class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Handle() { Close(); }

    explicit operator bool() const { return handle_ != nullptr; }
    HANDLE Get() const { return handle_; }
    void Close() {
        if (const HANDLE open = std::exchange(handle_, nullptr)) ::CloseHandle(open);
    }

private:
    HANDLE handle_ = nullptr;
};

}  // namespace mavrin2::platform
