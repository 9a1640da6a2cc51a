#pragma once

#include <utility>

#include "platform/automation.h"
#include "platform/pointer.h"

namespace mavrin2::platform {

// One of the system's, which stays the system's; the arrow for any other shape.
HCURSOR SystemCursor(PointerShape shape);

// The caller destroys it. Null when the system cannot make it.
HCURSOR NewCursor(const PointerImage& image);

// Destroys the cursor at its end.
class OwnCursor {
public:
    explicit OwnCursor(HCURSOR handle = nullptr) : handle_(handle) {}
    OwnCursor(OwnCursor&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    OwnCursor& operator=(OwnCursor&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~OwnCursor() {
        if (handle_) ::DestroyCursor(handle_);
    }

    HCURSOR Handle() const { return handle_; }

private:
    HCURSOR handle_;
};

}  // namespace mavrin2::platform
